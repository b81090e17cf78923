// Uses the installed package through its one header, across both libraries.
#include <cstdio>

#include <zkshell.h>

int main() {
    vRECT frame(vPOINT(vINT(10), vINT(10)), vINT(5), vINT(5));
    vSTRING path("%s", "C:\\ZKSHELL\\README.TXT");
    vSTRING name = path.RemoveFromEnd(vCHAR('\\'));
    fLIST list;
    list.Append(frame);
    int fine = frame.Width()() == 4 && name == vSTRING("README.TXT") && list.NoItems() == 1 &&
               vSYSTEM::Pointer() != nullptr;
    std::printf("consumer: %s\n", fine ? "package works" : "package broken");
    return fine ? 0 : 1;
}
