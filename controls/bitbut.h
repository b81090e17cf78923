#pragma once

#include "controls/button.h"

// A push button with a face for each state: pressed, focused, disabled and
// plain. Faces are drawn with the light grey of their cells left out.
class ZKSHELL_API vBITBUT : public vBUTTON {
public:
    vBITBUT(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect, int isDefault = 0,
            vCLASSID classId = CLASSID_BITBUT);
    ~vBITBUT() override;

    int vDraw(const vRECT& rect) override;
    void UpdateView(const vCTRLID& id) override;
    void SetupView(char* value, unsigned short length) override;
    void UpdateData(void* data) override;

    int Bitmaps(const vBITMAP* selected, const vBITMAP* focus, const vBITMAP* disabled, const vBITMAP* face);

    static vCONTROL* New(vWIN& parent, vCTRLID& id, vRESID& text);

protected:
    vBITMAP* face;
    vBITMAP* selectedFace;
    vBITMAP* focusFace;
    vBITMAP* disabledFace;

private:
    // The state's face, or the plain one when the state has none.
    void DrawFace(const vBITMAP* chosen, const vPOINT& centre);
    static void Replace(vBITMAP*& field, const vBITMAP* given);
};
