// The program's entry point, kept in a static archive of its own: a program
// that defines main itself, as the test programs do, never pulls it in.
#include "app/application.h"
#include "base/startup.h"

// The start-up's way into the application's loop, which nothing else may run.
struct vSTARTUP {
    static int Run(vAPP& app, HINSTANCE instance, HINSTANCE previous) { return app.Run(instance, previous); }
};

int main()
{
    HINSTANCE instance = GetModuleHandleA(nullptr);
    HINSTANCE previous = vFindPreviousInstance(instance);
    vAPP* app = vMain();
    if (!app)
        return 0;
    return vSTARTUP::Run(*app, instance, previous);
}
