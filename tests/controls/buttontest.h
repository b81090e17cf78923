#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "app/recorder.h"
#include "controls/control.h"
#include "examples/hello/png.h"

namespace buttontest {

using wintest::Note;
using Lines = std::vector<std::string>;

// The parent of the buttons under test: it notes each command with its
// notification code, which vCommand alone does not see.
class PARENT : public wintest::RECORDER {
public:
    PARENT(const vWIN& parent, const vRECT& rect) : RECORDER(parent, rect, "parent") {}

protected:
    int MsgHandler(unsigned int message, unsigned int wParam, long lParam, long& result) override
    {
        if (message == WM_COMMAND)
            Note("parent.WM_COMMAND(" + std::to_string(LOWORD(wParam)) + "," + std::to_string(HIWORD(wParam)) +
                 "," + std::to_string(lParam) + ")");
        return RECORDER::MsgHandler(message, wParam, lParam, result);
    }
};

// A bitmap the size given, in one colour, with a frame of another colour
// round it; the caller owns it.
inline HBITMAP SolidFace(int side, COLORREF inner, int frame, COLORREF border)
{
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
    HDC dc = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(dc, bitmap);
    HBRUSH outer = CreateSolidBrush(border);
    HBRUSH middle = CreateSolidBrush(inner);
    RECT all = {0, 0, side, side};
    RECT core = {frame, frame, side - frame, side - frame};
    FillRect(dc, &all, outer);
    FillRect(dc, &core, middle);
    DeleteObject(outer);
    DeleteObject(middle);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

// The client area of a window as it is on the screen, read back pixel by
// pixel.
class SHOT {
public:
    explicit SHOT(HWND window)
    {
        RECT client;
        GetClientRect(window, &client);
        width = client.right;
        height = client.bottom;
        bits.resize(width * height);
        HDC from = GetDC(window);
        HDC memory = CreateCompatibleDC(from);
        HBITMAP copy = CreateCompatibleBitmap(from, width, height);
        HGDIOBJ old = SelectObject(memory, copy);
        BitBlt(memory, 0, 0, width, height, from, 0, 0, SRCCOPY);
        SelectObject(memory, old);
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        read = GetDIBits(memory, copy, 0, height, bits.data(), &info, DIB_RGB_COLORS) == height;
        DeleteObject(copy);
        DeleteDC(memory);
        ReleaseDC(window, from);
    }

    bool Read() const { return read && width > 0 && height > 0; }

    COLORREF At(int x, int y) const
    {
        DWORD pixel = bits[y * width + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }

    int Count(COLORREF colour) const
    {
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                count += At(x, y) == colour;
        return count;
    }

    // For a person to look at: pngs/<name>.png under the current directory.
    void Save(const std::string& name) const
    {
        CreateDirectoryA("pngs", nullptr);
        std::vector<DWORD> opaque(bits);
        for (DWORD& pixel : opaque)
            pixel |= 0xFF000000;
        WritePng(("pngs/" + name + ".png").c_str(), reinterpret_cast<const unsigned char*>(opaque.data()), width,
                 height);
    }

    int width = 0;
    int height = 0;

private:
    std::vector<DWORD> bits;
    bool read = false;
};

// Lets everything queued run, for about the time given.
inline void PumpFor(DWORD ms)
{
    DWORD until = GetTickCount() + ms;
    do {
        wintest::Pump();
        Sleep(10);
    } while (static_cast<long>(until - GetTickCount()) > 0);
    wintest::Pump();
}

// Shows a window and lets it paint.
inline void ShowPainted(HWND window)
{
    ShowWindow(window, SW_SHOWNA);
    InvalidateRect(window, nullptr, TRUE);
    UpdateWindow(window);
    PumpFor(50);
}

inline Lines Only(const std::string& part)
{
    Lines kept;
    for (const std::string& line : wintest::Log())
        if (line.find(part) != std::string::npos)
            kept.push_back(line);
    return kept;
}

inline void Press(DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

// Puts the mouse on a point of the window's client area.
inline void MouseTo(HWND window, int x, int y)
{
    POINT at = {x, y};
    ClientToScreen(window, &at);
    SetCursorPos(at.x, at.y);
    Press(MOUSEEVENTF_MOVE);
}

// Every test gets a shown parent under the shared top-level window; the
// parent dies with the test.
class ButtonTest : public wintest::WindowTest {
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        parent = new PARENT(Top(), vRECT(0, 0, 300, 200));
        ShowWindow((*parent)(), SW_SHOW);
        wintest::Pump();
    }

    void TearDown() override
    {
        DestroyWindow((*parent)());
        wintest::Pump();
        WindowTest::TearDown();
    }

    PARENT* parent = nullptr;
};

}  // namespace buttontest
