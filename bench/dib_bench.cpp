#include "base/memory.h"
#include "bench/bench.h"
#include "graphics/dib.h"
#include "streams/stream.h"

namespace {

const unsigned long width = 4000;
const unsigned long height = 3000;
const unsigned long stride = width * 3;
const unsigned long headBytes = 54;
const unsigned long fileBytes = headBytes + stride * height;
const unsigned long bandLines = 64;
const int repetitions = 5;

std::string PicturePath()
{
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    return std::string(folder) + "zkbench-dib.bmp";
}

void Put(unsigned char* at, unsigned long value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        at[i] = static_cast<unsigned char>(value >> 8 * i);
}

// The picture file, written with the platform alone so that the library is
// measured only as a reader.
void WritePicture(const std::string& path)
{
    std::vector<unsigned char> bytes(fileBytes);
    Put(&bytes[0], 0x4D42, 2);
    Put(&bytes[2], fileBytes, 4);
    Put(&bytes[10], headBytes, 4);
    Put(&bytes[14], 40, 4);
    Put(&bytes[18], width, 4);
    Put(&bytes[22], height, 4);
    Put(&bytes[26], 1, 2);
    Put(&bytes[28], 24, 2);
    Put(&bytes[34], stride * height, 4);
    for (unsigned long i = headBytes; i < fileBytes; ++i)
        bytes[i] = static_cast<unsigned char>(i * 7);
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD done = 0;
    WriteFile(file, bytes.data(), fileBytes, &done, nullptr);
    CloseHandle(file);
}

// The baseline reads the whole file into a block of its own, as the memory
// store must.
void RawRead(const std::string& path)
{
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    unsigned char* into = static_cast<unsigned char*>(HeapAlloc(GetProcessHeap(), 0, fileBytes));
    DWORD done = 0;
    ReadFile(file, into, fileBytes, &done, nullptr);
    CloseHandle(file);
    zkbench::Keep(into[fileBytes - 1]);
    HeapFree(GetProcessHeap(), 0, into);
}

// The baseline of the stream store: the lines in the same bands through one
// buffer.
void RawBands(const std::string& path)
{
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    std::vector<unsigned char> band(bandLines * stride);
    SetFilePointer(file, headBytes, nullptr, FILE_BEGIN);
    for (unsigned long first = 0; first < height; first += bandLines) {
        DWORD done = 0;
        ReadFile(file, band.data(), std::min(bandLines, height - first) * stride, &done, nullptr);
    }
    CloseHandle(file);
    zkbench::Keep(band[0]);
}

// The stream store reads the header, then every line in bands through the
// caller's buffer; the most that the library held above its start is noted.
unsigned long StreamRead(const std::string& path)
{
    unsigned long before = vMemLiveBytes();
    unsigned long peak = 0;
    vFILE file(vSTRING(path.c_str()), vSTREAM_READ);
    oSTREAMDIB dib;
    dib << file;
    std::vector<unsigned char> band(bandLines * stride);
    for (unsigned long first = 0; first < height; first += bandLines) {
        dib.GetImageLines(first, first + bandLines - 1, band.data(), nullptr);
        peak = std::max(peak, vMemLiveBytes() - before);
    }
    zkbench::Keep(band[0]);
    return peak;
}

unsigned long MemoryRead(const std::string& path)
{
    unsigned long before = vMemLiveBytes();
    vFILE file(vSTRING(path.c_str()), vSTREAM_READ);
    oMEMDIB dib;
    dib << file;
    zkbench::Keep(*dib.GetHeader());
    return vMemLiveBytes() - before;
}

}  // namespace

void BenchImages()
{
    const std::string path = PicturePath();
    WritePicture(path);
    unsigned long memoryPeak = 0;
    unsigned long streamPeak = 0;
    auto plain = [&] { RawRead(path); };
    auto stream = [&] { streamPeak = StreamRead(path); };
    zkbench::Record("dib.read.memdib", "ReadFile into a new block",
                    zkbench::Compare([&] { memoryPeak = MemoryRead(path); }, plain, 1, repetitions));
    zkbench::Record("dib.read.streamdib", "ReadFile into a new block", zkbench::Compare(stream, plain, 1, repetitions));
    zkbench::Record("dib.read.streamdib.bands", "ReadFile of the same bands",
                    zkbench::Compare(stream, [&] { RawBands(path); }, 1, repetitions));
    std::printf("bench dib.read.streamdib peak=%lu bytes (oMEMDIB holds %lu, the file is %lu)\n", streamPeak,
                memoryPeak, fileBytes);
    DeleteFileA(path.c_str());
}
