#pragma once

#include <windows.h>
#include <objidl.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "streams/stream.h"

namespace zktest {

using Bytes = std::vector<unsigned char>;

// A file in the temporary directory; whoever asks removes it.
inline std::string TemporaryPath() {
    char directory[MAX_PATH], path[MAX_PATH];
    GetTempPathA(MAX_PATH, directory);
    GetTempFileNameA(directory, "zks", 0, path);
    return path;
}

// The whole of a file as another reader sees it.
inline Bytes FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline IStream* EmptyPlatformStream() {
    IStream* made = nullptr;
    return CreateStreamOnHGlobal(nullptr, TRUE, &made), made;
}

// The three concrete streams, each with the bytes its medium holds, seen without the stream, and the status a primitive
// read past the end leaves: the memory and file streams end, the platform stream reports nothing.
struct MemoryKind {
    static constexpr vSTREAMSTATUS afterShortRead = vSTREAM_END;
    vMEMSTREAM stream;
    Bytes Stored() {
        unsigned long at = stream.CurrentPos();
        Bytes bytes(stream.Size());
        stream.MoveFromStart(0), stream.ReadByteString(bytes.data(), bytes.size()), stream.MoveFromStart(at);
        return bytes;
    }
};

struct FileKind {
    static constexpr vSTREAMSTATUS afterShortRead = vSTREAM_END;
    std::string path = TemporaryPath();
    vFILE stream{vSTRING("%s", path.c_str()), vSTREAM_CREATE};
    ~FileKind() { stream.Close(), DeleteFileA(path.c_str()); }
    // Moving to where it stands sends the waiting bytes to the file.
    Bytes Stored() { return stream.MoveFromCur(0), FileBytes(path); }
};

struct OleKind {
    static constexpr vSTREAMSTATUS afterShortRead = vSTREAM_GOOD;
    IStream* platform = EmptyPlatformStream();
    vOLESTREAM stream{&platform, vSTRING("ole"), 0};
    ~OleKind() { platform->Release(); }
    Bytes Stored() {
        HGLOBAL memory = nullptr;
        GetHGlobalFromStream(platform, &memory);
        const unsigned char* bytes = static_cast<const unsigned char*>(GlobalLock(memory));
        Bytes copy(bytes, bytes + stream.Size());
        GlobalUnlock(memory);
        return copy;
    }
};

}  // namespace zktest
