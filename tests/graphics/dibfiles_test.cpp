#include <string>

#include "graphics/dibtest.h"
#include "support/zktest.h"

namespace {

using namespace dibtest;
using DibFilesTest = zktest::LeakFreeTest;

// Reads a file that ImageMagick made into the store and compares every pixel
// with ImageMagick's own decoding of the same file.
template <class STORE>
void ExpectReadAsImageMagickDecodes(const MADE& made, const std::string& file)
{
    long width = 0;
    long height = 0;
    Pixels decoded = ReadPpm(MadePath(file + ".ppm"), width, height);
    ASSERT_EQ(decoded.size(), static_cast<size_t>(made.width * made.height)) << file;
    vFILE stream(vSTRING(MadePath(file + ".bmp").c_str()), vSTREAM_READ);
    STORE dib;
    dib << stream;
    EXPECT_EQ(stream.Status(), vSTREAM_GOOD) << file;
    const oDIBHEADER& header = *dib.GetHeader();
    EXPECT_EQ(std::vector<unsigned long>({header.Width(), header.Height(), header.ColourDepth()}),
              std::vector<unsigned long>({static_cast<unsigned long>(width), static_cast<unsigned long>(height),
                                          static_cast<unsigned long>(made.depth)}))
        << file;
    EXPECT_EQ(Colours(dib), decoded) << file;
}

TEST_F(DibFilesTest, ImageMagicksFilesReadPixelForPixel)
{
    for (const MADE& made : Made) {
        for (const std::string& file : {std::string(made.name), std::string(made.name) + "-top"}) {
            ExpectReadAsImageMagickDecodes<oMEMDIB>(made, file);
            ExpectReadAsImageMagickDecodes<oSTREAMDIB>(made, file);
        }
    }
}

// What the written pictures hold: a pattern of palette indices, or of colours.
unsigned long Pattern(long x, long y, int depth)
{
    if (depth == 24)
        return static_cast<unsigned long>(x * 0x0B1703 + y * 0x2A0511) & 0xFFFFFF;
    return static_cast<unsigned long>(x * 3 + y * 5 + x * y) % (1UL << depth);
}

// The colour the pattern means at a pixel, worked out without the library.
COLORREF Meant(long x, long y, int depth)
{
    unsigned long value = Pattern(x, y, depth);
    if (depth == 24)
        return RGB(value >> 16 & 0xFF, value >> 8 & 0xFF, value & 0xFF);
    return PaletteColour(value);
}

// Builds the picture through the library's interface: header, palette, lines
// from the bottom up in bands of two.
void Build(oDIB& dib, long width, long height, int depth)
{
    static const oCOLOUR_MODEL models[] = {oMODEL_MONO, oMODEL_16, oMODEL_256, oMODEL_RGB};
    oCOLOUR_MODEL model = models[depth == 1 ? 0 : depth == 4 ? 1 : depth == 8 ? 2 : 3];
    dib.SetHeader(oDIBHEADER(static_cast<unsigned long>(width), static_cast<unsigned long>(height), 96, 96, model));
    if (depth <= 8) {
        std::vector<PALETTEENTRY> entries;
        for (unsigned long i = 0; i < 1UL << depth; ++i) {
            COLORREF colour = PaletteColour(i);
            entries.push_back(PALETTEENTRY{GetRValue(colour), GetGValue(colour), GetBValue(colour), 0});
        }
        dib.SetPalette(oDIBPALETTE(entries.data(), static_cast<unsigned short>(entries.size())));
    }
    Bytes picture = Archive(width, height, depth, 0, [depth](long x, long y) { return Pattern(x, y, depth); });
    unsigned long stride = Stride(width, depth);
    const unsigned char* lines = picture.data() + picture.size() - stride * height;
    for (long first = 0; first < height; first += 2) {
        long last = first + 1 < height ? first + 1 : height - 1;
        ASSERT_TRUE(dib.SetImageLines(const_cast<unsigned char*>(lines + first * stride), model, first, last));
    }
}

// Writes each picture with the library, and beside it a PPM of what it is
// meant to show, for ImageMagick to read and compare after this program ends.
TEST_F(DibFilesTest, PicturesWrittenHereAreForImageMagickToReadBack)
{
    const std::string written = MadePath("written");
    CreateDirectoryA(written.c_str(), nullptr);
    const struct {
        const char* name;
        long width;
        long height;
        int depth;
    } pictures[] = {{"mono", 19, 6, 1}, {"pal16", 11, 7, 4}, {"pal256", 23, 9, 8}, {"rgb", 17, 5, 24}};
    for (const auto& p : pictures) {
        std::string path = written + "/" + p.name;
        {
            oMEMDIB dib;
            Build(dib, p.width, p.height, p.depth);
            vFILE file(vSTRING((path + ".bmp").c_str()), vSTREAM_CREATE);
            dib >> file;
            EXPECT_EQ(file.Status(), vSTREAM_GOOD) << p.name;
        }
        // The same picture again by way of the stream store's band copy.
        vFILE source(vSTRING((path + ".bmp").c_str()), vSTREAM_READ);
        oSTREAMDIB onStream;
        onStream << source;
        vFILE copy(vSTRING((path + "-copy.bmp").c_str()), vSTREAM_CREATE);
        onStream >> copy;
        Pixels meant;
        for (long y = 0; y < p.height; ++y)
            for (long x = 0; x < p.width; ++x)
                meant.push_back(Meant(x, y, p.depth));
        EXPECT_EQ(Colours(onStream), meant) << p.name;
        WritePpm(path + ".ppm", p.width, p.height, meant);
        WritePpm(path + "-copy.ppm", p.width, p.height, meant);
    }
}

}  // namespace
