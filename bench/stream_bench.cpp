#include <cstring>
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
zkbench::Measure TimePlain(const std::string& path, DWORD disposition, unsigned long operations, Body body)
{
    return zkbench::Time([&] {
        HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        body(file);
        CloseHandle(file);
    }, operations);
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
    zkbench::Measure writes = zkbench::Time([&] {
        stream.MoveFromStart(0);
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            stream.WriteBlock(source.data(), BlockSize);
    }, MemoryBlockCount);
    zkbench::Measure copies = zkbench::Time([&] {
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            std::memcpy(target.data() + done, source.data(), BlockSize);
        zkbench::Keep(target);
    }, MemoryBlockCount);
    zkbench::Record("stream.mem.block.write", "memcpy", writes, copies);

    zkbench::Measure reads = zkbench::Time([&] {
        stream.MoveFromStart(0);
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            stream.ReadByteString(target.data() + done, BlockSize);
        zkbench::Keep(target);
    }, MemoryBlockCount);
    // From a source as large as the stream's bytes, so that both copies
    // meet the same caches.
    std::vector<unsigned char> whole(MemoryBytes, 0x5A);
    zkbench::Measure wholeCopies = zkbench::Time([&] {
        std::memcpy(target.data(), whole.data(), MemoryBytes);
        zkbench::Keep(target);
    }, MemoryBlockCount);
    zkbench::Record("stream.mem.block.read", "memcpy", reads, wholeCopies);

    zkbench::Measure grows = zkbench::Time([&] {
        vMEMSTREAM fresh;
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            fresh.WriteBlock(source.data(), BlockSize);
        zkbench::Keep(fresh.Size());
    }, MemoryBlockCount);
    zkbench::Measure appends = zkbench::Time([&] {
        std::vector<unsigned char> fresh;
        for (unsigned long done = 0; done < MemoryBytes; done += BlockSize)
            fresh.insert(fresh.end(), source.begin(), source.end());
        zkbench::Keep(fresh);
    }, MemoryBlockCount);
    zkbench::Record("stream.mem.block.grow", "std::vector insert", grows, appends);
}

// One long at a time: the virtual call and the bounds test against a copy
// of four bytes to a moving pointer.
void MemoryPrimitives()
{
    std::vector<unsigned char> target(MemoryLongs * 4);
    vMEMSTREAM stream;
    Prefill(stream, MemoryLongs * 4);
    zkbench::Measure writes = zkbench::Time([&] {
        stream.MoveFromStart(0);
        for (unsigned long n = 0; n < MemoryLongs; ++n)
            stream.WriteULong(n);
    }, MemoryLongs);
    zkbench::Measure copies = zkbench::Time([&] {
        unsigned char* at = target.data();
        for (unsigned long n = 0; n < MemoryLongs; ++n, at += 4)
            std::memcpy(at, &n, 4);
        zkbench::Keep(target);
    }, MemoryLongs);
    zkbench::Record("stream.mem.ulong.write", "memcpy 4 bytes", writes, copies);

    zkbench::Measure reads = zkbench::Time([&] {
        stream.MoveFromStart(0);
        unsigned long sum = 0;
        for (unsigned long n = 0; n < MemoryLongs; ++n)
            sum += stream.ReadULong();
        zkbench::Keep(sum);
    }, MemoryLongs);
    zkbench::Measure plain = zkbench::Time([&] {
        const unsigned char* at = target.data();
        unsigned long sum = 0;
        for (unsigned long n = 0; n < MemoryLongs; ++n, at += 4) {
            unsigned long value;
            std::memcpy(&value, at, 4);
            sum += value;
        }
        zkbench::Keep(sum);
    }, MemoryLongs);
    zkbench::Record("stream.mem.ulong.read", "memcpy 4 bytes", reads, plain);
}

// A whole file in blocks, opened and closed inside the measure on both sides.
void FileBlocks(const std::string& path)
{
    std::vector<unsigned char> data(FileBytes, 0xA5);
    vSTRING name("%s", path.c_str());
    zkbench::Measure writes = zkbench::Time([&] {
        vFILE file(name, vSTREAM_CREATE);
        for (unsigned long done = 0; done < FileBytes; done += BlockSize)
            file.WriteBlock(data.data() + done, BlockSize);
    }, FileBlockCount);
    zkbench::Measure plainWrites = TimePlain(path, CREATE_ALWAYS, FileBlockCount, [&](HANDLE file) {
        WritePieces(file, data.data(), FileBytes, BlockSize);
    });
    zkbench::Record("stream.file.block.write", "WriteFile blocks", writes, plainWrites);

    zkbench::Measure reads = zkbench::Time([&] {
        vFILE file(name, vSTREAM_READ);
        for (unsigned long done = 0; done < FileBytes; done += BlockSize)
            file.ReadByteString(data.data() + done, BlockSize);
    }, FileBlockCount);
    zkbench::Measure plainReads = TimePlain(path, OPEN_EXISTING, FileBlockCount, [&](HANDLE file) {
        ReadPieces(file, data.data(), FileBytes, BlockSize);
    });
    zkbench::Record("stream.file.block.read", "ReadFile blocks", reads, plainReads);
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

    zkbench::Measure writes = zkbench::Time([&] {
        vFILE file(name, vSTREAM_CREATE);
        for (unsigned long n = 0; n < FileLongs; ++n)
            file.WriteULong(n);
    }, FileLongs);
    zkbench::Record("stream.file.ulong.write.each", "WriteFile each 4 bytes", writes,
                    TimePlain(path, CREATE_ALWAYS, FileLongs, [&](HANDLE file) { WritePieces(file, bytes, size, 4); }));
    zkbench::Record("stream.file.ulong.write.whole", "WriteFile all at once", writes,
                    TimePlain(path, CREATE_ALWAYS, FileLongs, [&](HANDLE file) { WritePieces(file, bytes, size, size); }));

    zkbench::Measure reads = zkbench::Time([&] {
        vFILE file(name, vSTREAM_READ);
        unsigned long sum = 0;
        for (unsigned long n = 0; n < FileLongs; ++n)
            sum += file.ReadULong();
        zkbench::Keep(sum);
    }, FileLongs);
    zkbench::Record("stream.file.ulong.read.each", "ReadFile each 4 bytes", reads,
                    TimePlain(path, OPEN_EXISTING, FileLongs, [&](HANDLE file) { ReadPieces(file, bytes, size, 4); }));
    zkbench::Record("stream.file.ulong.read.whole", "ReadFile all at once", reads,
                    TimePlain(path, OPEN_EXISTING, FileLongs, [&](HANDLE file) { ReadPieces(file, bytes, size, size); }));
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
