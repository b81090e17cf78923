#pragma once

#include "controls/bitbut.h"

// A bitmap button that repeats its command every 200 milliseconds while it is
// held down.
class ZKSHELL_API vREPEATKEY : public vBITBUT {
public:
    vREPEATKEY(const vWIN& parent, const vCTRLID& id, const vBITMAP& face, const vRECT& rect);

    int vTimer(const vRESID& id) override;

protected:
    int MsgHandler(unsigned int message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};
