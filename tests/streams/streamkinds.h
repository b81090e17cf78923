#pragma once

#include <windows.h>
#include <objidl.h>

#include <memory>
#include <string>
#include <vector>

#include "streams/stream.h"

namespace zktest {

// The three concrete streams behind one face, each with a way to see the
// bytes it holds without going through the stream itself.
class StreamKind {
public:
    virtual ~StreamKind() = default;
    virtual vSTREAM& Stream() = 0;
    // What the medium holds now, pending writes included.
    virtual std::vector<unsigned char> Stored() = 0;
};

class MemoryKind : public StreamKind {
public:
    vSTREAM& Stream() override { return stream; }
    std::vector<unsigned char> Stored() override
    {
        unsigned long at = stream.CurrentPos();
        std::vector<unsigned char> bytes(stream.Size());
        stream.MoveFromStart(0);
        stream.ReadByteString(bytes.data(), bytes.size());
        stream.MoveFromStart(at);
        return bytes;
    }

private:
    vMEMSTREAM stream;
};

// A file in the temporary directory, removed at the end.
inline std::string TemporaryPath(const char* prefix)
{
    char directory[MAX_PATH];
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, directory);
    GetTempFileNameA(directory, prefix, 0, path);
    return path;
}

// The whole of a file as another reader sees it.
inline std::vector<unsigned char> FileBytes(const std::string& path)
{
    std::vector<unsigned char> bytes;
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return bytes;
    bytes.resize(GetFileSize(file, nullptr));
    DWORD got = 0;
    ReadFile(file, bytes.data(), bytes.size(), &got, nullptr);
    bytes.resize(got);
    CloseHandle(file);
    return bytes;
}

class FileKind : public StreamKind {
public:
    FileKind() : path(TemporaryPath("zks")), stream(new vFILE(vSTRING("%s", path.c_str()), vSTREAM_CREATE)) {}
    ~FileKind() override
    {
        stream.reset();
        DeleteFileA(path.c_str());
    }
    vSTREAM& Stream() override { return *stream; }
    // Moving to where it is sends the waiting bytes to the file.
    std::vector<unsigned char> Stored() override
    {
        stream->MoveFromCur(0);
        return FileBytes(path);
    }

private:
    std::string path;
    std::unique_ptr<vFILE> stream;
};

class OleKind : public StreamKind {
public:
    OleKind() : platform(Empty()), stream(&platform, vSTRING("ole"), 0) {}
    ~OleKind() override { platform->Release(); }
    vSTREAM& Stream() override { return stream; }
    std::vector<unsigned char> Stored() override
    {
        HGLOBAL memory = nullptr;
        GetHGlobalFromStream(platform, &memory);
        STATSTG about;
        platform->Stat(&about, STATFLAG_NONAME);
        const unsigned char* bytes = static_cast<const unsigned char*>(GlobalLock(memory));
        std::vector<unsigned char> copy(bytes, bytes + about.cbSize.LowPart);
        GlobalUnlock(memory);
        return copy;
    }

    static IStream* Empty()
    {
        IStream* made = nullptr;
        CreateStreamOnHGlobal(nullptr, TRUE, &made);
        return made;
    }

private:
    IStream* platform;
    vOLESTREAM stream;
};

}  // namespace zktest
