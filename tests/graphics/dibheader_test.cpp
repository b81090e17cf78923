#include <cstddef>

#include "graphics/dib.h"
#include "support/zktest.h"

namespace {

using HeaderTest = zktest::LeakFreeTest;

// The platform's forty bytes first, then the model and the palette: twelve
// words on the 32-bit build. On the 64-bit build the palette pointer widens
// to eight bytes and aligns to them.
static_assert(sizeof(oDIBHEADER) == (sizeof(void*) == 4 ? 48 : 56), "the header is the platform's, the model and the palette");

TEST_F(HeaderTest, TheFirstFortyBytesAreThePlatformsHeader)
{
    oDIBHEADER header(13, 7, 300, 72, oMODEL_16);
    const BITMAPINFOHEADER& info = header.Info();
    EXPECT_EQ(reinterpret_cast<const void*>(&info), reinterpret_cast<const void*>(&header));
    EXPECT_EQ(std::vector<long>({long(info.biSize), info.biWidth, info.biHeight, info.biPlanes, info.biBitCount,
                                 long(info.biCompression), long(info.biSizeImage), info.biXPelsPerMeter,
                                 info.biYPelsPerMeter, long(info.biClrUsed), long(info.biClrImportant)}),
              std::vector<long>({40, 13, 7, 1, 4, 0, 8 * 7, 12000, 2880, 0, 0}));
    EXPECT_EQ(header.ColourModel(), oMODEL_16);
    EXPECT_EQ(header.Palette(), nullptr);
}

TEST_F(HeaderTest, TheModelGivesTheDepthAndTheLinesArePaddedToWords)
{
    struct {
        oCOLOUR_MODEL model;
        unsigned short depth;
        unsigned long width;
        unsigned long bytesPerLine;
    } cases[] = {
        {oMODEL_RGB, 24, 13, 40}, {oMODEL_RGB, 24, 4, 12}, {oMODEL_MONO, 1, 33, 8},
        {oMODEL_MONO, 1, 32, 4},  {oMODEL_16, 4, 9, 8},    {oMODEL_256, 8, 5, 8},
    };
    for (const auto& c : cases) {
        oDIBHEADER header(c.width, 3, 0, 0, c.model);
        EXPECT_EQ(header.ColourDepth(), c.depth) << c.model;
        EXPECT_EQ(header.BytesPerLine(), c.bytesPerLine) << c.model << " " << c.width;
        EXPECT_EQ(header.Size(), 3 * c.bytesPerLine) << c.model << " " << c.width;
    }
}

TEST_F(HeaderTest, SettersKeepTheImageSizeInStep)
{
    oDIBHEADER header(10, 4, 96, 96, oMODEL_RGB);
    header.Width(3);
    EXPECT_EQ(header.Size(), 12UL * 4);
    header.Height(5);
    EXPECT_EQ(header.Size(), 12UL * 5);
    header.ColourModel(oMODEL_256);
    EXPECT_EQ(std::vector<unsigned long>({header.ColourDepth(), header.BytesPerLine(), header.Size()}),
              std::vector<unsigned long>({8, 4, 20}));
    // A picture with no lines has no bytes in a line either.
    header.Height(0);
    EXPECT_EQ(header.BytesPerLine(), 0UL);
}

TEST_F(HeaderTest, ResolutionIsStoredAtFortyPixelsForEachMetre)
{
    oDIBHEADER header;
    header.HorzDPI(300);
    header.VertDPI(75);
    EXPECT_EQ(header.Info().biXPelsPerMeter, 12000);
    EXPECT_EQ(header.Info().biYPelsPerMeter, 3000);
    EXPECT_EQ(header.HorzDPI(), 300UL);
    EXPECT_EQ(header.VertDPI(), 75UL);
}

TEST_F(HeaderTest, AssignmentCopiesThePalettePointerWithTheRest)
{
    RGBQUAD quad = {1, 2, 3, 0};
    oDIBPALETTE palette(&quad, 1);
    oDIBHEADER header(5, 6, 100, 200, oMODEL_256);
    header.Palette(&palette);
    oDIBHEADER copy;
    copy = header;
    EXPECT_EQ(copy.Palette(), &palette);
    EXPECT_EQ(std::vector<unsigned long>({copy.Width(), copy.Height(), copy.HorzDPI(), copy.VertDPI(), copy.Size()}),
              std::vector<unsigned long>({5, 6, 100, 200, 48}));
}

}  // namespace
