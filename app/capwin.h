#pragma once

#include "app/window.h"

// A window with a caption: a popup when it has an owner window, a captioned
// window under the frame when it belongs to the application. The base of
// document windows and dialogs.
class ZKSHELL_API vCAPWIN : public vWIN {
public:
    vCAPWIN(const vWIN& parent, const vRECT& rect, const vSTRING& title, vWNDFLAGS style = WF_NONE,
            vCAPFLAGS boxes = 0, vCLASSID classId = CLASSID_CAPWIN);
    vCAPWIN(const vAPP& app, const vRECT& rect, const vSTRING& title, vWNDFLAGS style = WF_NONE,
            vCAPFLAGS boxes = 0, vCLASSID classId = CLASSID_CAPWIN);
    ~vCAPWIN() override;

    // The platform's caption height in this window's logical units.
    virtual vINT CaptionHeight();

    void BringToFront() const;
    void SendToBack() const;
    vSTRING Title();
    void Title(const vSTRING& title);

private:
    void Caption(const vSTRING& title, vCAPFLAGS boxes, vCLASSID classId);
};
