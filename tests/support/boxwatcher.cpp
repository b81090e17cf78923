#include "support/zktest.h"

namespace zktest {

namespace {
// The identifier of the text of a platform message box.
const int messageTextId = 0xFFFF;
}

BoxWatcher::BoxWatcher(const std::string& caption, int button, DWORD timeoutMs)
    : caption(caption), button(button), timeoutMs(timeoutMs), seen(false),
      thread(CreateThread(nullptr, 0, &BoxWatcher::Watch, this, 0, nullptr))
{
}

BoxWatcher::~BoxWatcher()
{
    Seen();
    CloseHandle(thread);
}

DWORD WINAPI BoxWatcher::Watch(void* self)
{
    BoxWatcher* watcher = static_cast<BoxWatcher*>(self);
    DWORD deadline = GetTickCount() + watcher->timeoutMs;
    while (GetTickCount() < deadline) {
        HWND box = FindWindowA("#32770", watcher->caption.c_str());
        if (box && IsWindowVisible(box)) {
            char text[512] = {};
            GetDlgItemTextA(box, messageTextId, text, sizeof text);
            watcher->text = text;
            watcher->seen = true;
            PostMessageA(box, WM_COMMAND, watcher->button, 0);
            return 0;
        }
        Sleep(20);
    }
    return 0;
}

bool BoxWatcher::Seen()
{
    WaitForSingleObject(thread, INFINITE);
    return seen;
}

std::string BoxWatcher::Text()
{
    Seen();
    return text;
}

}  // namespace zktest
