#pragma once

#include "controls/control.h"

// The forms of a list, chosen by the flag word of its constructor.
enum : unsigned short {
    LBF_MULTICOLUMN = 0x01,
    LBF_SORTED = 0x02,
    LBF_MULTIPLESEL = 0x04,
    // Ignored when LBF_MULTIPLESEL is given too.
    LBF_EXTENDEDSEL = 0x08,
    // Selected items can be dragged: the list does selection by the mouse
    // itself, so that a press on a selection does not clear it at once.
    LBF_DRAG = 0x10,
    // A hidden window between the list and its parent makes the list a
    // target for dropped files.
    LBF_FAKEPARENT = 0x20,
    LBF_GREYED = 0x40
};

// An owner-drawn list on the platform's "listbox" class. The items and their
// data words live in the platform list; the object keeps a snapshot of the
// selection, the item size and the state of a press, and draws each item
// through vDrawNormal and vDrawSelected, which a program overrides to show
// more than text.
//
//     vLISTBOX* files = new vLISTBOX(frame, vCTRLID(9), LBF_SORTED, vSIZE(0, 0), vRECT(10, 10, 200, 300));
//     files->Append(vSTRING("readme.txt"), nullptr);
//     files->Show();
//     // The frame's vCommand(vCTRLID(9)) runs when the selection changes.
class ZKSHELL_API vLISTBOX : public vCONTROL {
public:
    vLISTBOX(const vWIN& parent, const vCTRLID& id, unsigned short form, const vSIZE& itemSize, const vRECT& rect,
             vCLASSID classId = CLASSID_LISTBOX);
    ~vLISTBOX() override;

    vWIN* Parent() override;
    int Enable(int enable = 1) override;
    int Disable() override;
    void Size(const vRECT& rect) override;
    vRECT Size() const override;
    void UpdateView(const vCTRLID&) override {}
    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}
    short vCompare(const vSTRING& first, const vSTRING& second) override;
    const vSIZE ItemSize() const override;
    int ccPaint(tagDRAWITEMSTRUCT* item) override;

    virtual vINT NoItems() const;
    virtual vINT NoItemsSel();
    virtual vINT ItemLength(unsigned short index);
    virtual int IsSelected(unsigned short index);
    virtual vINT GetItemFocus();
    virtual int GetSel();
    virtual void Reset();
    virtual int Select(const vOBJECT& object, int on);
    virtual int Select(const vSTRING& text, int on);
    virtual int Select(unsigned short index, int on);
    virtual int SetTopItem(const vSTRING& text);
    virtual int SetTopItem(unsigned short index);
    virtual unsigned short GetTopIndex();
    virtual short Index(const vSTRING& text);
    virtual short Search(const vSTRING& prefix);
    virtual void Append(const vSTRING& text, const vOBJECT* data);
    virtual void Insert(const vSTRING& text, const vOBJECT* data, short index);
    virtual void Remove(unsigned short index);
    virtual void Remove(const vOBJECT& object, int once);
    virtual void Remove(const vSTRING& text, int once);
    virtual void RemoveAll();
    virtual vSTRING operator[](unsigned short index);
    virtual vOBJECT* GetData(unsigned short index);
    virtual void ItemSize(const vSIZE& size);
    // Called by the parent's command dispatch when the selection changed.
    virtual void vSelectionChange(unsigned short) {}
    virtual int vSelectionDoubleClick(unsigned short, const vPOINT&) { return 0; }
    virtual vRECT GetItemRect(unsigned short index);
    virtual int vDrawNormal(unsigned short index, const vSTRING& text, const vRECT& rect);
    virtual int vDrawSelected(unsigned short index, const vSTRING& text, const vRECT& rect);

    void SetItemWidth(unsigned short width);
    // The text and data of entry i of the selection snapshot.
    vSTRING SelectedItems(unsigned short i);
    vOBJECT* GetSelData(unsigned short i);
    int MultiSelectAll();
    int MultiClearSelection();

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    int DoDraw() override;
    void CreateWin() override;
    vCLASSID GetClassID() override;

    void MakeFileList(const vSTRING& pattern, int clear);

    int greyed;
    int sorted;
    int canDrag;
    int wantsFakeParent;
    int allItemsFit;
    int multiColumn;
    int multiSelect;
    int ctrlAtPress;
    int shiftAtPress;
    vSIZE itemSize;
    int* selection;
    short pressedItem;
    unsigned short selectionCount;
    class vFAKEPARENT;
    vFAKEPARENT* fakeParent;

private:
    friend class vDROPLISTBOX;

    int MouseMove(const vPOINT& point);
    int MouseLeftPress(const vPOINT& point);
    int MouseLeftRelease(const vPOINT& point);
    int MouseLeftDoubleClick(const vPOINT& point);
    void Reselect();
    void DrawClear(HDC dc, const tagRECT& rect);
    void DrawSelected(HDC dc, const tagRECT& rect);

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // What the list and the drop-down list do alike, each with its own
    // messages.
    static char* ItemText(const vSTRING& text);
    TEXTMETRICA LineMetrics();
    void AddItem(UINT add, UINT setData, const vSTRING& text, const vOBJECT* data);
    void RemoveMatching(UINT find, const vSTRING& text, int once);
    vSTRING TextOf(UINT get, unsigned short index);
    vOBJECT* DataOf(UINT get, unsigned short index);
    void MakeFakeParent(const vWIN& parent, const vRECT& rect);
    DWORD CreationStyle(unsigned short form) const;
    HWND ItemParent();
    int ItemAt(const vPOINT& point, vINT count);
    void ReportSelection(HWND to);
    int ShiftPress(const vPOINT& point, vINT count);
    int PressOnItem(const vPOINT& point, vINT count);
    void FillWith(vSCREENCOLOUR colour);
};

#include "controls/combobox.h"
