// A whole program of the family, started by the tests as a user would start it: its entry point is the library's
// start-up. With "iconic" on its command line it starts as an icon; with "language" its title tells the language that
// its version resource gave it.
#include <windows.h>

#include "zkshell.h"

class TWICE : public vAPP {
public:
    TWICE() : vAPP(vSTRING("ZkTwiceFrame"), vSTRING("Twice"), 1) {}
};

namespace {

int Asked(const vSTRING& command, const char* word) {
    return !command.GetSubString(vSTRING("%s", word)).Null();
}

void ShowLanguage(vAPP& app) {
    int found = app.Init();
    char title[64];
    wsprintfA(title, "language %u init %d", app.Language(), found);
    SetWindowTextA(vSYSTEM::GetFrameWindow(), title);
}

}  // namespace

vAPP* vMain() {
    vAPP* app = new TWICE;
    vSTRING command = app->GetSetCommand(vSTRING());
    if (Asked(command, "language"))
        ShowLanguage(*app);
    app->Show();
    if (Asked(command, "iconic"))
        app->Iconise();
    return app;
}
