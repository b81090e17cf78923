#include "app/message.h"

#include "app/application.h"
#include "app/window.h"

namespace {

// A set of buttons the platform can show, and the defaults it allows, in the
// order of the default-button styles.
struct BUTTONSET {
    unsigned short buttons;
    UINT style;
    unsigned short defaults[3];
};

// Abort, Retry and Ignore are accepted as 14, not as their sum 28: that is
// the code programs of the family pass.
const BUTTONSET buttonSets[] = {
    {MSG_OK, MB_OK, {MSG_OK, 0, 0}},
    {MSG_OK + MSG_CANCEL, MB_OKCANCEL, {MSG_OK, MSG_CANCEL, 0}},
    {MSG_RETRY + MSG_CANCEL, MB_RETRYCANCEL, {MSG_RETRY, MSG_CANCEL, 0}},
    {14, MB_ABORTRETRYIGNORE, {MSG_ABORT, MSG_RETRY, MSG_IGNORE}},
    {MSG_YES + MSG_NO, MB_YESNO, {MSG_YES, MSG_NO, 0}},
    {MSG_YES + MSG_NO + MSG_CANCEL, MB_YESNOCANCEL, {MSG_YES, MSG_NO, MSG_CANCEL}},
};

const UINT defaultStyles[] = {MB_DEFBUTTON1, MB_DEFBUTTON2, MB_DEFBUTTON3};

// The style for a set and its default, or 0 when either is not allowed.
int ButtonStyle(unsigned short buttons, unsigned short defaultButton, UINT& style)
{
    for (const BUTTONSET& set : buttonSets) {
        if (set.buttons != buttons)
            continue;
        for (int index = 0; index < 3; ++index)
            if (set.defaults[index] && set.defaults[index] == defaultButton) {
                style = set.style | defaultStyles[index];
                return 1;
            }
        return 0;
    }
    return 0;
}

unsigned short Answer(int result)
{
    switch (result) {
    case IDOK:
        return MSG_OK;
    case IDCANCEL:
        return MSG_CANCEL;
    case IDABORT:
        return MSG_ABORT;
    case IDRETRY:
        return MSG_RETRY;
    case IDIGNORE:
        return MSG_IGNORE;
    case IDYES:
        return MSG_YES;
    case IDNO:
        return MSG_NO;
    default:
        return 0;
    }
}

}  // namespace

vMESSAGE::vMESSAGE()
    : hOwner(nullptr)
{
    vSYSTEM::Trace(3, "vMESSAGE::vMESSAGE(vSYST)");
}

vMESSAGE::vMESSAGE(const vAPP& app)
    : hOwner(app.hFrame)
{
    vSYSTEM::Trace(3, "vMESSAGE::vMESSAGE(vAPP)");
}

vMESSAGE::vMESSAGE(const vWIN& window)
    : hOwner(window())
{
    vSYSTEM::Trace(3, "vMESSAGE::vMESSAGE(vWIN)");
}

vMESSAGE::~vMESSAGE()
{
    vSYSTEM::Trace(3, "vMESSAGE::vMESSAGE(vSYST)");
}

unsigned short vMESSAGE::Info(const vSTRING& text, const vSTRING& caption) const
{
    return Display(text, caption, MSG_OK, MSG_OK, MB_ICONINFORMATION);
}

unsigned short vMESSAGE::Warning(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                                 unsigned short defaultButton) const
{
    return Display(text, caption, buttons, defaultButton, MB_ICONEXCLAMATION);
}

unsigned short vMESSAGE::Critical(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                                  unsigned short defaultButton) const
{
    return Display(text, caption, buttons, defaultButton, MB_ICONHAND);
}

unsigned short vMESSAGE::Query(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                               unsigned short defaultButton) const
{
    return Display(text, caption, buttons, defaultButton, MB_ICONQUESTION);
}

void vMESSAGE::Beep(short sound) const
{
    MessageBeep(static_cast<UINT>(sound));
}

unsigned short vMESSAGE::Display(const vSTRING& text, const vSTRING& caption, unsigned short buttons,
                                 unsigned short defaultButton, UINT icon) const
{
    UINT style = icon;
    if (!hOwner)
        style |= MB_SYSTEMMODAL;
    UINT buttonStyle = 0;
    if (!ButtonStyle(buttons, defaultButton, buttonStyle))
        return 0;
    return Answer(MessageBoxA(hOwner, text(), caption(), style | buttonStyle));
}
