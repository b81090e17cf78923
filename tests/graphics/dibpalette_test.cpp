#include "graphics/dib.h"
#include "graphics/colour.h"
#include "support/zktest.h"

namespace {

using PaletteTest = zktest::LeakFreeTest;

std::vector<COLORREF> Listed(const oPALETTE& palette)
{
    std::vector<COLORREF> colours;
    for (unsigned short i = 0; i <= palette.GetNumColours(); ++i) {
        vCOLOUR colour(1, 2, 3);
        if (palette.GetColour(i, colour))
            colours.push_back(RGB(colour.Red(), colour.Green(), colour.Blue()));
    }
    return colours;
}

TEST_F(PaletteTest, PlatformEntriesBecomeQuadsInBlueGreenRedOrder)
{
    PALETTEENTRY entries[] = {{10, 20, 30, 0}, {200, 100, 50, PC_NOCOLLAPSE}};
    oDIBPALETTE palette(entries, 2);
    EXPECT_EQ(palette.GetNumColours(), 2);
    const RGBQUAD* quads = palette.GetRgbQuad();
    EXPECT_EQ(std::vector<int>({quads[0].rgbBlue, quads[0].rgbGreen, quads[0].rgbRed, quads[0].rgbReserved,
                                quads[1].rgbBlue, quads[1].rgbGreen, quads[1].rgbRed, quads[1].rgbReserved}),
              std::vector<int>({30, 20, 10, 0, 50, 100, 200, 0}));
    // Only indices below the count answer, and the colour is left alone past it.
    EXPECT_EQ(Listed(palette), std::vector<COLORREF>({RGB(10, 20, 30), RGB(200, 100, 50)}));
    // With no entries to take there are no colours.
    oDIBPALETTE none(static_cast<PALETTEENTRY*>(nullptr), 2);
    EXPECT_EQ(none.GetNumColours(), 0);
    EXPECT_EQ(none.GetRgbQuad(), nullptr);
}

TEST_F(PaletteTest, CopiesAndAssignmentsHaveArraysOfTheirOwn)
{
    RGBQUAD quads[] = {{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}};
    oDIBPALETTE original(quads, 3);
    oDIBPALETTE copy(original);
    oDIBPALETTE assigned(quads, 1);
    assigned = original;
    EXPECT_TRUE(original.SetColour(0, vCOLOUR(255, 255, 255)));
    EXPECT_FALSE(original.SetColour(3, vCOLOUR(255, 255, 255)));
    EXPECT_NE(copy.GetRgbQuad(), original.GetRgbQuad());
    EXPECT_EQ(Listed(copy), std::vector<COLORREF>({RGB(3, 2, 1), RGB(6, 5, 4), RGB(9, 8, 7)}));
    EXPECT_EQ(Listed(assigned), Listed(copy));
    EXPECT_EQ(Listed(original)[0], RGB(255, 255, 255));
}

TEST_F(PaletteTest, NearestColourLooksOnlyBelowTheLimit)
{
    PALETTEENTRY entries[] = {{0, 0, 0, 0}, {250, 0, 0, 0}, {0, 0, 250, 0}, {255, 10, 10, 0}};
    oDIBPALETTE palette(entries, 4);
    struct {
        vCOLOUR colour;
        unsigned short below;
        unsigned short nearest;
    } cases[] = {
        {vCOLOUR(255, 10, 10), 4, 3}, {vCOLOUR(255, 10, 10), 3, 1}, {vCOLOUR(10, 10, 200), 4, 2},
        {vCOLOUR(10, 10, 200), 2, 0}, {vCOLOUR(90, 0, 0), 99, 0},   {vCOLOUR(200, 0, 0), 99, 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(palette.NearestColour(c.colour, c.below), c.nearest)
            << int(c.colour.Red()) << "," << int(c.colour.Blue()) << " below " << c.below;
}

}  // namespace
