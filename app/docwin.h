#pragma once

#include "app/capwin.h"

// A document window inside the frame's document client. The client makes
// and destroys it, and it carries its place in the application's own rows
// or columns: the links of the tile list and the breadth it is given there.
class ZKSHELL_API vDOCWIN : public vCAPWIN {
public:
    vDOCWIN(const vAPP& app, const vRECT& rect, const vSTRING& title, vWNDFLAGS style = WF_NONE,
            vCAPFLAGS boxes = 0, vCLASSID classId = CLASSID_DOCWIN);
    vDOCWIN(const vDOCWIN&) = delete;
    vDOCWIN& operator=(const vDOCWIN&) = delete;
    ~vDOCWIN() override;

    // As the window's, except that the client destroys the window.
    static void* operator new(size_t size);
    static void operator delete(void* block);

    void Activate() override;
    void Show(int show = 1) override;
    void Hide() override;
    // Maximises through the client, unlike vWIN::Maximise.
    virtual void Maximize();

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void CreateWin() override;

private:
    friend class vAPP;
    friend struct vDOCWINACCESS;

    int Tiling() const;
    HWND Client() const;

    vDOCWIN* pNextTile;
    vDOCWIN* pPrevTile;
    vINT breadth;
};
