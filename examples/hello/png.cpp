#include "png.h"

#include <cstdio>
#include <vector>

namespace {

typedef std::vector<unsigned char> BYTES;

unsigned long Crc(const BYTES& data, size_t from)
{
    unsigned long crc = 0xFFFFFFFFul;
    for (size_t index = from; index < data.size(); ++index) {
        crc ^= data[index];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320ul & (0ul - (crc & 1)));
    }
    return crc ^ 0xFFFFFFFFul;
}

void Big(BYTES& out, unsigned long value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<unsigned char>(value >> shift));
}

void Chunk(BYTES& out, const char* type, const BYTES& body)
{
    Big(out, static_cast<unsigned long>(body.size()));
    size_t start = out.size();
    out.insert(out.end(), type, type + 4);
    out.insert(out.end(), body.begin(), body.end());
    Big(out, Crc(out, start));
}

// The rows as PNG wants them: a filter byte of 0, then red, green, blue.
BYTES Rows(const unsigned char* bgra, int width, int height)
{
    BYTES raw;
    for (int y = 0; y < height; ++y) {
        raw.push_back(0);
        for (const unsigned char* pixel = bgra + y * width * 4; pixel < bgra + (y + 1) * width * 4; pixel += 4) {
            raw.push_back(pixel[2]);
            raw.push_back(pixel[1]);
            raw.push_back(pixel[0]);
        }
    }
    return raw;
}

// A zlib stream of stored blocks: no compression, so no deflate coder.
BYTES Stored(const BYTES& raw)
{
    BYTES out{0x78, 0x01};
    unsigned long a = 1, b = 0;
    for (unsigned char byte : raw) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    for (size_t at = 0; at < raw.size() || at == 0; at += 65535) {
        size_t length = raw.size() - at < 65535 ? raw.size() - at : 65535;
        out.push_back(at + length == raw.size() ? 1 : 0);
        unsigned char lengthBytes[4] = {static_cast<unsigned char>(length), static_cast<unsigned char>(length >> 8),
                                        static_cast<unsigned char>(~length), static_cast<unsigned char>(~length >> 8)};
        out.insert(out.end(), lengthBytes, lengthBytes + 4);
        out.insert(out.end(), raw.begin() + at, raw.begin() + at + length);
    }
    Big(out, (b << 16) | a);
    return out;
}

}  // namespace

bool WritePng(const char* path, const unsigned char* bgra, int width, int height)
{
    BYTES file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    BYTES header;
    Big(header, static_cast<unsigned long>(width));
    Big(header, static_cast<unsigned long>(height));
    header.insert(header.end(), {8, 2, 0, 0, 0});
    Chunk(file, "IHDR", header);
    Chunk(file, "IDAT", Stored(Rows(bgra, width, height)));
    Chunk(file, "IEND", BYTES());
    FILE* out = std::fopen(path, "wb");
    if (!out)
        return false;
    bool written = std::fwrite(file.data(), 1, file.size(), out) == file.size();
    return std::fclose(out) == 0 && written;
}
