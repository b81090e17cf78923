#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "bench/bench.h"
#include "streams/stream.h"

namespace {

const unsigned long BlockSize = 65536;
const unsigned long MemoryBytes = 16 * BlockSize;
const unsigned long FileBytes = 64 * BlockSize;
const unsigned long MemoryLongs = 1 << 18;
const unsigned long FileLongs = 1 << 16;
const unsigned long MemoryBlockCount = MemoryBytes / BlockSize;
const unsigned long FileBlockCount = FileBytes / BlockSize;

std::string TemporaryPath()
{
    char directory[MAX_PATH];
    char path[MAX_PATH];
    GetTempPathA(MAX_PATH, directory);
    GetTempFileNameA(directory, "zkb", 0, path);
    return path;
}

// The plain platform file, opened and closed inside the measure as the
// stream's is, written or read in pieces of the given size.
template <class Body>
std::function<void()> Plain(const std::string& path, DWORD disposition, Body body)
{
    return [path, disposition, body] {
        HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        body(file);
        CloseHandle(file);
    };
}

void WritePieces(HANDLE file, const unsigned char* data, unsigned long bytes, unsigned long piece)
{
    DWORD put;
    for (unsigned long done = 0; done < bytes; done += piece)
        WriteFile(file, data + done, piece, &put, nullptr);
}

void ReadPieces(HANDLE file, unsigned char* data, unsigned long bytes, unsigned long piece)
{
    DWORD got;
    for (unsigned long done = 0; done < bytes; done += piece)
        ReadFile(file, data + done, piece, &got, nullptr);
}

// A stream that already has room for everything, as after its first fill:
// what is measured is the copying, not the growth.
void Prefill(vMEMSTREAM& stream, unsigned long bytes)
{
    std::vector<unsigned char> zeros(bytes);
    stream.WriteBlock(zeros.data(), bytes);
}

// Blocks in and out of memory: the stream's copies against memcpy's.
void MemoryBlocks()
{
    std::vector<unsigned char> source(BlockSize, 0x5A);
    std::vector<unsigned char> target(MemoryBytes);
    vMEMSTREAM stream;
    Prefill(stream, MemoryBytes);
    auto writes = [&] {
        stream.MoveFromStart(0);
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            stream.WriteBlock(source.data(), BlockSize);
    };
    auto copies = [&] {
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            std::memcpy(target.data() + done, source.data(), BlockSize);
        zkbench::Keep(target);
    };
    zkbench::Record("stream.mem.block.write", "memcpy", zkbench::Compare(writes, copies, MemoryBlockCount));

    auto reads = [&] {
        stream.MoveFromStart(0);
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            stream.ReadByteString(target.data() + done, BlockSize);
        zkbench::Keep(target);
    };
    // From a source as large as the stream's bytes, so that both copies
    // meet the same caches.
    std::vector<unsigned char> whole(MemoryBytes, 0x5A);
    auto wholeCopies = [&] {
        std::memcpy(target.data(), whole.data(), MemoryBytes);
        zkbench::Keep(target);
    };
    zkbench::Record("stream.mem.block.read", "memcpy", zkbench::Compare(reads, wholeCopies, MemoryBlockCount));

    auto grows = [&] {
        vMEMSTREAM fresh;
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            fresh.WriteBlock(source.data(), BlockSize);
        zkbench::Keep(fresh.Size());
    };
    auto appends = [&] {
        std::vector<unsigned char> fresh;
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            fresh.insert(fresh.end(), source.begin(), source.end());
        zkbench::Keep(fresh);
    };
    zkbench::Record("stream.mem.block.grow", "std::vector insert", zkbench::Compare(grows, appends, MemoryBlockCount));
}

// One long at a time: the virtual call and the bounds test against a copy
// of four bytes to a moving pointer.
void MemoryPrimitives()
{
    std::vector<unsigned char> target(MemoryLongs * 4);
    vMEMSTREAM stream;
    Prefill(stream, MemoryLongs * 4);
    auto writes = [&] {
        stream.MoveFromStart(0);
        for (unsigned long n = 0; n < MemoryLongs; ++n)
            stream.WriteULong(n);
    };
    auto copies = [&] {
        unsigned char* at = target.data();
        for (unsigned long n = 0; n < MemoryLongs; ++n, at += 4)
            std::memcpy(at, &n, 4);
        zkbench::Keep(target);
    };
    zkbench::Record("stream.mem.ulong.write", "memcpy 4 bytes", zkbench::Compare(writes, copies, MemoryLongs));

    auto reads = [&] {
        stream.MoveFromStart(0);
        unsigned long sum = 0;
        for (unsigned long n = 0; n < MemoryLongs; ++n)
            sum += stream.ReadULong();
        zkbench::Keep(sum);
    };
    auto plain = [&] {
        const unsigned char* at = target.data();
        unsigned long sum = 0;
        for (unsigned long n = 0; n < MemoryLongs; ++n, at += 4) {
            unsigned long value;
            std::memcpy(&value, at, 4);
            sum += value;
        }
        zkbench::Keep(sum);
    };
    zkbench::Record("stream.mem.ulong.read", "memcpy 4 bytes", zkbench::Compare(reads, plain, MemoryLongs));
}

// A whole file in blocks, opened and closed inside the measure on both sides.
void FileBlocks(const std::string& path)
{
    std::vector<unsigned char> data(FileBytes, 0xA5);
    vSTRING name("%s", path.c_str());
    auto writes = [&] {
        vFILE file(name, vSTREAM_CREATE);
        for (unsigned long done = 0; done < FileBytes; done += BlockSize)
            file.WriteBlock(data.data() + done, BlockSize);
    };
    auto plainWrites = Plain(path, CREATE_ALWAYS, [&](HANDLE file) {
        WritePieces(file, data.data(), FileBytes, BlockSize);
    });
    zkbench::Record("stream.file.block.write", "WriteFile blocks",
                    zkbench::Compare(writes, plainWrites, FileBlockCount));

    auto reads = [&] {
        vFILE file(name, vSTREAM_READ);
        for (unsigned long done = 0; done < FileBytes; done += BlockSize)
            file.ReadByteString(data.data() + done, BlockSize);
    };
    auto plainReads = Plain(path, OPEN_EXISTING, [&](HANDLE file) {
        ReadPieces(file, data.data(), FileBytes, BlockSize);
    });
    zkbench::Record("stream.file.block.read", "ReadFile blocks", zkbench::Compare(reads, plainReads, FileBlockCount));
}

// One long at a time against the platform asked for the same four bytes
// each time, and against one call for all of them.
void FilePrimitives(const std::string& path)
{
    vSTRING name("%s", path.c_str());
    std::vector<unsigned long> longs(FileLongs);
    for (unsigned long n = 0; n < FileLongs; ++n)
        longs[n] = n;
    unsigned char* bytes = reinterpret_cast<unsigned char*>(longs.data());
    const unsigned long size = FileLongs * 4;

    auto writes = [&] {
        vFILE file(name, vSTREAM_CREATE);
        for (unsigned long n = 0; n < FileLongs; ++n)
            file.WriteULong(n);
    };
    auto writeEach = Plain(path, CREATE_ALWAYS, [&](HANDLE file) { WritePieces(file, bytes, size, 4); });
    auto writeWhole = Plain(path, CREATE_ALWAYS, [&](HANDLE file) { WritePieces(file, bytes, size, size); });
    zkbench::Record("stream.file.ulong.write.each", "WriteFile each 4 bytes",
                    zkbench::Compare(writes, writeEach, FileLongs));
    zkbench::Record("stream.file.ulong.write.whole", "WriteFile all at once",
                    zkbench::Compare(writes, writeWhole, FileLongs));

    auto reads = [&] {
        vFILE file(name, vSTREAM_READ);
        unsigned long sum = 0;
        for (unsigned long n = 0; n < FileLongs; ++n)
            sum += file.ReadULong();
        zkbench::Keep(sum);
    };
    auto readEach = Plain(path, OPEN_EXISTING, [&](HANDLE file) { ReadPieces(file, bytes, size, 4); });
    auto readWhole = Plain(path, OPEN_EXISTING, [&](HANDLE file) { ReadPieces(file, bytes, size, size); });
    zkbench::Record("stream.file.ulong.read.each", "ReadFile each 4 bytes",
                    zkbench::Compare(reads, readEach, FileLongs));
    zkbench::Record("stream.file.ulong.read.whole", "ReadFile all at once",
                    zkbench::Compare(reads, readWhole, FileLongs));
}

}  // namespace

void BenchStreams()
{
    MemoryBlocks();
    MemoryPrimitives();
    std::string path = TemporaryPath();
    FileBlocks(path);
    FilePrimitives(path);
    DeleteFileA(path.c_str());
}
