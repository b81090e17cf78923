#pragma once

#include "controls/listbox.h"

// The forms of a combo box: only the order of its items is chosen.
enum : unsigned short {
    CBF_SORTED = 0x02
};

// An editable combo box on the platform's "combobox" class, always open. The
// platform window is made; its list operations are left empty, for programs
// that fill the control themselves.
class ZKSHELL_API vCOMBOBOX : public vCONTROL {
public:
    vCOMBOBOX(const vWIN& parent, const vCTRLID& id, unsigned short flags, const vSIZE& itemSize, const vRECT& rect,
              vCLASSID classId = CLASSID_COMBOBOX);

    void SetupView(char*, unsigned short) override {}
    void UpdateData(void*) override {}

    virtual void ItemSize(const vSIZE&) {}
    virtual vINT NoItems() const;
    virtual int Select(const vSTRING&) { return 0; }
    virtual int Select(unsigned short) { return 0; }
    virtual short Search(const vSTRING&) { return -1; }
    virtual void Append(const vSTRING&) {}
    virtual void Insert(const vSTRING&, short) {}
    virtual void Remove(unsigned short) {}
    virtual void Remove(const vSTRING&, int) {}
    virtual void RemoveAll() {}
    virtual vSTRING operator[](unsigned short) { return vSTRING(); }

protected:
    // Every message goes to the platform's combo box.
    int MsgHandler(unsigned int, WPARAM, LPARAM, LRESULT&) override { return 0; }

    void ItemHeight(const vWIN& parent, const vSIZE& size);

    int initialised;
};

// An editable combo box whose list drops down.
class ZKSHELL_API vDROPCOMBOBOX : public vCOMBOBOX {
public:
    vDROPCOMBOBOX(const vWIN& parent, const vCTRLID& id, unsigned short rows, unsigned short flags,
                  const vSIZE& itemSize, const vRECT& rect, vCLASSID classId = CLASSID_DROPCOMBOBOX);

    // The handler of the older message signature, which nothing calls.
    virtual int MsgHandler(unsigned short, unsigned int, long) { return 0; }
    // Hooks for a program; the library calls neither.
    virtual int vDropDown() { return 0; }
    virtual int vCloseUp() { return 0; }

    unsigned short NoDropRows() const;
    void NoDropRows(unsigned short) {}
    void DropDown();
    void CloseUp();

protected:
    using vCOMBOBOX::MsgHandler;

    long reserved;
    unsigned short noDropRows;
};

// A list that drops down from a field showing its selection: the platform's
// owner-drawn drop-down list, used like a vLISTBOX. Its items are drawn 3
// from the left edge.
//
//     vDROPLISTBOX* kind = new vDROPLISTBOX(frame, vCTRLID(4), 6, 0, vSIZE(0, 0), vRECT(10, 10, 150, 30));
//     kind->Append(vSTRING("Pictures"), nullptr);
//     kind->Select(0);
class ZKSHELL_API vDROPLISTBOX : public vLISTBOX {
public:
    vDROPLISTBOX(const vWIN& parent, const vCTRLID& id, unsigned short rows, unsigned short flags,
                 const vSIZE& itemSize, const vRECT& rect, vCLASSID classId = CLASSID_DROPLISTBOX);

    void ItemSize(const vSIZE& size) override;
    const vSIZE ItemSize() const override;
    vINT NoItems() const override;
    vINT NoItemsSel() override;
    int GetSel() override;
    short Index(const vSTRING& text) override;
    short Search(const vSTRING& prefix) override;
    void Append(const vSTRING& text, const vOBJECT* data) override;
    void Insert(const vSTRING& text, const vOBJECT* data, short index) override;
    void Remove(unsigned short index) override;
    void Remove(const vSTRING& text, int once) override;
    void RemoveAll() override;
    vSTRING operator[](unsigned short index) override;
    vOBJECT* GetData(unsigned short index) override;
    void vSelectionChange(unsigned short) override {}
    int vDrawNormal(unsigned short index, const vSTRING& text, const vRECT& rect) override;
    int vDrawSelected(unsigned short index, const vSTRING& text, const vRECT& rect) override;

    virtual vSTRING SelectedItems(unsigned short i);
    virtual int Select(const vSTRING& text);
    virtual int Select(unsigned short index);
    virtual vOBJECT* GetSelData(unsigned short i);
    // The closed field alone; setting it keeps the dropped rows as they are.
    virtual void VisibleSize(const vRECT& rect);
    virtual vRECT VisibleSize() const;
    // Hooks for a program; the library calls neither.
    virtual int vDropDown() { return 0; }
    virtual int vCloseUp() { return 0; }

    unsigned short NoDropRows() const;
    void NoDropRows(unsigned short rows);
    void DropDown();
    void CloseUp();

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    vCLASSID GetClassID() override;

    int pendingEdit;
    unsigned short noDropRows;
};
