#include "graphics/dibtest.h"

#include <algorithm>
#include <memory>

#include "graphics/colour.h"
#include "support/zktest.h"

namespace {

using namespace dibtest;
using DibTest = zktest::LeakFreeTest;
using Ints = std::vector<long>;

// The platform's forty bytes, the model, and the palette pointer (aligned to 8 on 64 bits).
static_assert(sizeof(oDIBHEADER) == (sizeof(void*) == 4 ? 48 : 56),
              "the header is the platform's, the model and the palette");

// Index i is (red i, green 255 - step i, blue step i).
oDIBPALETTE Ramp(unsigned short count, int step) {
    std::vector<RGBQUAD> quads;
    for (unsigned short i = 0; i < count; ++i)
        quads.push_back(RGBQUAD{BYTE(i * step), BYTE(255 - i * step), BYTE(i), 0});
    return oDIBPALETTE(quads.data(), count);
}

// The model gives the depth, lines are padded to 32 bits, a dot an inch is
// kept as 40 pixels a metre, and the first forty bytes are the platform's.
TEST_F(DibTest, TheHeaderIsThePlatformsWithLinesPaddedToWords) {
    for (const Ints& layout : {Ints{oMODEL_RGB, 13, 24, 40, 120}, Ints{oMODEL_RGB, 4, 24, 12, 36},
                               Ints{oMODEL_MONO, 33, 1, 8, 24}, Ints{oMODEL_MONO, 32, 1, 4, 12},
                               Ints{oMODEL_16, 9, 4, 8, 24}, Ints{oMODEL_256, 5, 8, 8, 24}}) {
        oDIBHEADER header(layout[1], 3, 0, 0, oCOLOUR_MODEL(layout[0]));
        EXPECT_EQ(Ints({layout[0], layout[1], header.ColourDepth(), long(header.BytesPerLine()), long(header.Size())}),
                  layout);
    }
    oDIBHEADER header(13, 7, 300, 72, oMODEL_16);
    const BITMAPINFOHEADER& info = header.Info();
    EXPECT_EQ(Ints({long(info.biSize), info.biWidth, info.biHeight, info.biPlanes, info.biBitCount,
                    long(info.biCompression), long(info.biSizeImage), info.biXPelsPerMeter, info.biYPelsPerMeter,
                    long(header.VertDPI())}),
              Ints({40, 13, 7, 1, 4, 0, 8 * 7, 12000, 2880, 72}));
    header.Width(3);
    header.ColourModel(oMODEL_256);
    EXPECT_EQ(Ints({header.ColourDepth(), long(header.BytesPerLine()), long(header.Size())}), Ints({8, 4, 28}));
}

// A palette keeps quads of its own, blue first, and answers only below its count; the nearest colour is looked for
// below a limit, and of two equally near ones the first wins. A picture keeps one palette of its own whatever header it
// is given, and its copies share it.
TEST_F(DibTest, APaletteOwnsItsQuadsAndFindsTheFirstNearestColour) {
    PALETTEENTRY entries[] = {{0, 0, 0, 0}, {250, 0, 0, PC_NOCOLLAPSE}, {0, 0, 250, 0}, {255, 10, 10, 0}};
    oDIBPALETTE palette(entries, 4), copy(palette), assigned = Ramp(1, 0);
    assigned = palette;
    EXPECT_EQ(Ints({palette.GetRgbQuad()[1].rgbBlue, palette.GetRgbQuad()[1].rgbRed}), Ints({0, 250}));
    for (const Ints& c : {Ints{0x0A0AFF, 4, 3}, Ints{0x0A0AFF, 3, 1}, Ints{0xC80A0A, 4, 2}, Ints{0xC80A0A, 2, 0},
                          Ints{0x5A, 99, 0}, Ints{0xC8, 99, 1}, Ints{0x7D007D, 3, 0}, Ints{0xC800C8, 3, 1}})
        EXPECT_EQ(Ints({c[0], c[1], palette.NearestColour(vCOLOUR(c[0], 0), static_cast<unsigned short>(c[1]))}), c);
    EXPECT_TRUE(palette.SetColour(3, vCOLOUR(1, 2, 3)) && !palette.SetColour(4, vCOLOUR(1, 2, 3)));
    for (const oDIBPALETTE* other : {&palette, &copy, &assigned}) {
        vCOLOUR colour(9, 9, 9);
        EXPECT_TRUE(other->GetColour(3, colour) && !other->GetColour(4, colour) &&
                    colour.PackedRGB() == (other == &palette ? 0x030201UL : 0x0A0AFFUL));
    }
    auto original = std::make_unique<oMEMDIB>(7);
    oDIBPALETTE *own = nullptr, *again = nullptr;
    original->SetPalette(Ramp(4, 10));
    original->GetPalette(&own);
    oDIBHEADER withForeign(2, 2, 0, 0, oMODEL_16);
    withForeign.Palette(&palette);
    original->SetHeader(withForeign);
    original->SetPalette(Ramp(16, 5));
    oMEMDIB dibCopy(*original), dibAssigned;
    dibAssigned = *original;
    for (const oMEMDIB* dib : {original.get(), &dibCopy, &dibAssigned})
        EXPECT_TRUE(dib->GetPalette(&again) == 16 && again == own && dib->GetHeader()->Palette() == own &&
                    dib->Tag() == 7);
    original.reset();
    EXPECT_EQ(dibCopy.GetPalette(nullptr), 16) << "the palette outlives the picture that made it";
}

// A line of four pixels in each model from a picture of another, through the
// palette Ramp(16, 10), or a grey ramp without one.
TEST_F(DibTest, LinesConvertBetweenModelsThroughThePaletteOrAGreyRamp) {
    const struct {
        oCOLOUR_MODEL from, to;
        int palette;
        Bytes line, expected;
    } cases[] = {
        // Indices become their colours, blue first.
        {oMODEL_16, oMODEL_RGB, 1, {0x1F, 0x20}, {10, 245, 1, 150, 105, 15, 20, 235, 2, 0, 255, 0}},
        // Colours become the index of the nearest entry.
        {oMODEL_RGB, oMODEL_16, 1, {10, 245, 1, 150, 105, 15, 0, 254, 0, 19, 236, 2}, {0x1F, 0x02}},
        // An index that fits the smaller depth stays; one that does not goes to the nearest that fits.
        {oMODEL_256, oMODEL_MONO, 1, {1, 0, 15, 1}, {0xB0}},
        // Past the palette an index is black, and black is nearest to entry 13.
        {oMODEL_256, oMODEL_16, 1, {1, 15, 200, 0}, {0x1F, 0xD0}},
        {oMODEL_MONO, oMODEL_256, 1, {0xA0}, {1, 0, 1, 0}},
        // Black, white, mid grey to white, red dark: brightness weighs red 299, green 587, blue 114.
        {oMODEL_RGB, oMODEL_MONO, 0, {0, 0, 0, 255, 255, 255, 128, 128, 128, 0, 0, 255}, {0x60}},
        {oMODEL_RGB, oMODEL_16, 0, {0, 0, 0, 255, 255, 255, 128, 128, 128, 0, 0, 255}, {0x0F, 0x84}},
        {oMODEL_MONO, oMODEL_RGB, 0, {0x40}, {0, 0, 0, 255, 255, 255, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        oMEMDIB dib;
        dib.SetHeader(oDIBHEADER(4, 1, 0, 0, c.from));
        if (c.palette)
            dib.SetPalette(Ramp(16, 10));
        Bytes line = c.line, expected = c.expected, out(oDIBHEADER::LineBytes(4, oDIBHEADER::DepthOf(c.to)), 0xEE);
        line.resize(oDIBHEADER::LineBytes(4, oDIBHEADER::DepthOf(c.from)));
        expected.resize(out.size());
        oCOLOUR_MODEL model = c.to;
        EXPECT_TRUE(dib.SetImageLines(line.data(), c.from, 0, 0) && dib.GetImageLines(0, 0, out.data(), &model));
        EXPECT_EQ(out, expected) << c.from << " to " << c.to;
    }
}

// The stream form is a 14-byte file header, the forty bytes of the header, the colours and the lines from the bottom
// up: an archive built byte by byte, read and written again, is the same bytes, whatever the depth.
TEST_F(DibTest, TheStreamFormIsAFileHeaderThenTheClipboardBlock) {
    oMEMDIB dib;
    for (int depth : {1, 4, 8, 24}) {
        auto pixel = [depth](long x, long y) { return static_cast<unsigned long>(x * 31 + y * 7) % (1UL << depth); };
        Bytes archive = Archive(7, 5, depth, 0, pixel);
        MemoryStream source(archive);
        dib << *source;
        EXPECT_TRUE(source->CurrentPos() == archive.size() && Written(dib) == archive) << depth;
    }
}

// Each way of spoiling a good archive of 8 bits, 6 by 4, leaves both stores empty and the stream ended.
TEST_F(DibTest, BadStreamsLeaveAnEmptyPictureAndAnEndedStream) {
    const std::pair<const char*, std::function<void(Bytes&)>> cases[] = {
        {"not a bitmap", [](Bytes& b) { b[1] = 'A'; }},
        {"height 0", [](Bytes& b) { Put(b, 22, 0, 4); }},
        {"size not width by depth", [](Bytes& b) { Put(b, 34, 4 * 6, 4); }},
        {"more colours than the depth has", [](Bytes& b) { Put(b, 28, 4, 2); Put(b, 34, 0, 4); Put(b, 46, 17, 4); }},
        {"offset inside the colours", [](Bytes& b) { Put(b, 10, 54 + 100, 4); }},
        {"offset past the end", [](Bytes& b) { Put(b, 10, static_cast<unsigned long>(b.size() + 1), 4); }},
        {"depth 3", [](Bytes& b) { Put(b, 28, 3, 2); }},
        {"run-length coded", [](Bytes& b) { Put(b, 30, BI_RLE8, 4); }},
        {"huge width", [](Bytes& b) { Put(b, 18, 0x7FFFFFFF, 4); }},
        {"lines cut short", [](Bytes& b) { b.resize(b.size() - 1); }},
        {"nothing at all", [](Bytes& b) { b.clear(); }},
    };
    const Bytes good = Archive(6, 4, 8, 0, [](long x, long y) { return static_cast<unsigned long>(x + y); });
    for (const auto& c : cases) {
        Bytes bytes = good;
        c.second(bytes);
        MemoryStream first(bytes), second(bytes);
        oMEMDIB memory;
        oSTREAMDIB onStream;
        memory << *first;
        onStream << *second;
        unsigned char line[64];
        EXPECT_EQ(Ints({long(memory.GetHeader()->Height()), memory.GetPalette(nullptr),
                        memory.GetImageLines(0, 0, line, nullptr), long(onStream.GetHeader()->Height()),
                        onStream.GetPalette(nullptr), onStream.GetImageLines(0, 0, line, nullptr),
                        first->Status(), second->Status()}),
                  Ints({0, 0, 0, 0, 0, 0, vSTREAM_END, vSTREAM_END})) << c.first;
    }
}

// A 24-bit picture of 5 by 6 whose line n is filled with the byte n * 10 + 1.
void Lined(oDIB& dib) {
    dib.SetHeader(oDIBHEADER(5, 6, 0, 0, oMODEL_RGB));
    Bytes lines(16 * 6);
    for (unsigned long i = 0; i < lines.size(); ++i)
        lines[i] = static_cast<unsigned char>(i / 16 * 10 + 1);
    dib.SetImageLines(lines.data(), oMODEL_RGB, 0, 2);
    dib.SetImageLines(lines.data() + 48, oMODEL_RGB, 3, 5);
}

// The first byte of each of lines first to last.
Ints Firsts(const oDIB& dib, unsigned long first, unsigned long last) {
    Bytes lines(16 * (last - first + 1));
    Ints firsts;
    for (size_t i = 0; dib.GetImageLines(first, last, lines.data(), nullptr) && i < lines.size(); i += 16)
        firsts.push_back(lines[i]);
    return firsts;
}

// Bands land where they are numbered and none reaches past the picture; copies have lines of their own; a header larger
// than memory leaves none; a picture joined to a stream is written there when it dies. A lock in the header's model is
// the store itself, in another a copy stored back only when asked, one band at a time; a block is width pixels from
// pixel x of line y, height lines up.
TEST_F(DibTest, AMemoryPicturesBandsLocksAndBlocksLandWhereTheyAreNumbered) {
    oMEMDIB dib, empty, assigned, huge, mono;
    Lined(dib);
    EXPECT_EQ(Firsts(dib, 0, 5), Ints({1, 11, 21, 31, 41, 51}));
    Bytes buffer(16 * 8, 7);
    EXPECT_FALSE(empty.GetImageLines(0, 0, buffer.data(), nullptr) ||
                 empty.SetImageLines(buffer.data(), oMODEL_RGB, 0, 0));
    for (const auto& band : {Ints{0, 6}, Ints{6, 6}, Ints{3, 2}, Ints{7, 9}})
        EXPECT_FALSE(dib.GetImageLines(band[0], band[1], buffer.data(), nullptr) ||
                     dib.SetImageLines(buffer.data(), oMODEL_RGB, band[0], band[1]));
    EXPECT_FALSE(dib.GetImageLines(0, 1, nullptr, nullptr));
    oMEMDIB copy(dib);
    assigned = dib;
    dib.SetImageLines(buffer.data(), oMODEL_RGB, 0, 0);
    EXPECT_EQ(Ints({Firsts(copy, 0, 0)[0], Firsts(assigned, 0, 0)[0], Firsts(dib, 0, 0)[0]}), Ints({1, 1, 7}));
    huge.SetHeader(oDIBHEADER(0x10000, 0x10000, 0, 0, oMODEL_RGB));
    EXPECT_TRUE(Firsts(huge, 0, 0).empty() && Written(huge).empty());
    vMEMSTREAM target;
    {
        oMEMDIB joined(target, 0);
        Lined(joined);
        EXPECT_EQ(target.Size(), 0UL);
    }
    target.MoveFromStart(0);
    empty << target;
    EXPECT_EQ(Firsts(empty, 0, 5), Ints({1, 11, 21, 31, 41, 51}));
    unsigned char* lines = nullptr;
    ASSERT_TRUE(dib.LockImageLines(2, 3, &lines, oMODEL_RGB) && !dib.LockImageLines(0, 0, &lines, oMODEL_RGB));
    lines[16] = 99;
    EXPECT_EQ(Ints({lines[0], Firsts(dib, 3, 3)[0]}), Ints({21, 99}));
    EXPECT_TRUE(dib.ReleaseImageLines(0) && !dib.ReleaseImageLines(1) && !dib.LockImageLines(5, 6, &lines, oMODEL_RGB));
    mono.SetHeader(oDIBHEADER(12, 3, 0, 0, oMODEL_MONO));
    unsigned char bits[12] = {0xF0, 0x0F, 0, 0, 0x33, 0xCC, 0, 0, 0xAA, 0x55, 0, 0};
    unsigned char block[8] = {}, patch[4] = {0xFF}, rgb[12] = {};
    mono.SetImageLines(bits, oMODEL_MONO, 0, 2);
    for (int keep : {0, 1}) {
        ASSERT_TRUE(mono.LockImageLines(1, 1, &lines, oMODEL_RGB));
        std::fill(lines, lines + 3, 255);
        ASSERT_TRUE(mono.ReleaseImageLines(keep) && mono.GetImageLines(1, 1, bits, nullptr));
        EXPECT_EQ(bits[0], keep ? 0xB3 : 0x33) << "the first pixel turned white, kept " << keep;
    }
    oCOLOUR_MODEL model = oMODEL_RGB;
    ASSERT_TRUE(mono.GetImageBlock(3, 1, 5, 2, block, nullptr) && mono.SetImageBlock(patch, oMODEL_MONO, 10, 0, 2, 1));
    ASSERT_TRUE(mono.GetImageLines(0, 0, bits, nullptr) && mono.GetImageBlock(0, 2, 2, 1, rgb, &model));
    EXPECT_EQ(Ints({block[0], block[4], bits[0], bits[1], rgb[0], rgb[3]}), Ints({0x98, 0x50, 0xF0, 0x3F, 255, 0}));
    EXPECT_FALSE(mono.GetImageBlock(11, 0, 2, 1, block, nullptr) || mono.GetImageBlock(0, 2, 1, 2, block, nullptr) ||
                 mono.SetImageBlock(patch, oMODEL_MONO, 0, 0, 0, 1) ||
                 mono.SetImageBlock(nullptr, oMODEL_MONO, 0, 0, 2, 1));
}

// A picture on a stream keeps its lines there, reads and writes them in place, a top-down stream turned over, and its
// copies read the same stream; it is written bottom-up in bands. A header of another shape, or no stream, leaves it
// without lines.
TEST_F(DibTest, AStreamPicturesLinesStayOnTheStream) {
    auto value = [](long x, long y) { return static_cast<unsigned long>(x * 0x010203 + y * 0x300000) & 0xFFFFFF; };
    MemoryStream big(Archive(300, 500, 24, 1, value));
    unsigned long bytes = vMemLiveBytes();
    oSTREAMDIB dib, none;
    dib << *big;
    EXPECT_TRUE(vMemLiveBytes() - bytes < 1024 && big->CurrentPos() == big->Size());
    EXPECT_EQ(Written(dib), Archive(300, 500, 24, 0, value));
    for (int topDown : {0, 1}) {
        auto pixel = [](long x, long y) { return static_cast<unsigned long>(x + 4 * y); };
        MemoryStream source(Archive(4, 3, 8, topDown, pixel));
        oSTREAMDIB small, assigned;
        small << *source;
        oSTREAMDIB copy(small);
        assigned = small;
        unsigned char line[4] = {9, 8, 7, 6}, *locked = nullptr;
        ASSERT_TRUE(small.SetImageLines(line, oMODEL_256, 0, 0));
        // Line 0 is the bottom one, the first on the stream unless the stream runs top-down.
        source->MoveFromStart(54 + 1024 + (topDown ? 8 : 0));
        source->ReadByteString(line, 4);
        EXPECT_EQ(Ints(line, line + 4), Ints({9, 8, 7, 6})) << topDown;
        for (const oSTREAMDIB* other : {&copy, &assigned}) {
            unsigned char top[4] = {}, bottom[4] = {};
            EXPECT_TRUE(other->GetImageLines(2, 2, top, nullptr) && other->GetImageLines(0, 0, bottom, nullptr));
            EXPECT_EQ(Ints({top[0], top[3], bottom[1]}), Ints({0, 3, 8})) << topDown;
        }
        ASSERT_TRUE(small.LockImageLines(1, 2, &locked, oMODEL_RGB));
        locked[0] = GetBValue(PaletteColour(5));
        locked[1] = GetGValue(PaletteColour(5));
        locked[2] = GetRValue(PaletteColour(5));
        EXPECT_TRUE(small.ReleaseImageLines(1) && small.GetImageLines(1, 1, line, nullptr)) << topDown;
        EXPECT_TRUE(line[0] == 5 && line[1] == 5) << topDown;
        oDIBHEADER header = *small.GetHeader();
        header.HorzDPI(300);
        small.SetHeader(header);
        EXPECT_TRUE(small.GetImageLines(1, 1, line, nullptr)) << "a header of the same shape keeps the lines";
        small.SetHeader(oDIBHEADER(4, 2, 300, 0, oMODEL_256));
        EXPECT_FALSE(small.GetImageLines(0, 0, line, nullptr) || small.LockImageLines(0, 0, &locked, oMODEL_256));
    }
    none.SetHeader(oDIBHEADER(4, 2, 0, 0, oMODEL_256));
    EXPECT_TRUE(Written(none).empty() && Colours(none).empty()) << "without a stream there are no lines";
}

// The files that ImageMagick made at build time, bottom-up and top-down, at every depth and odd widths, read into both
// stores pixel for pixel as ImageMagick decodes them, in the model of their depth.
TEST_F(DibTest, ImageMagicksFilesReadPixelForPixel) {
    const std::pair<const char*, oCOLOUR_MODEL> made[] = {{"mono13", oMODEL_MONO}, {"mono33", oMODEL_MONO},
                                                         {"pal16", oMODEL_16},      {"pal256", oMODEL_256},
                                                         {"rgb13", oMODEL_RGB},     {"rgb30", oMODEL_RGB}};
    for (const auto& m : made)
        for (const std::string& file : {std::string(m.first), std::string(m.first) + "-top"})
            for (int store = 0; store < 2; ++store) {
                long width = 0, height = 0;
                std::string path = std::string(ZK_DIB_FILES) + "/" + file;
                Pixels decoded = ReadPpm(path + ".ppm", width, height);
                vFILE stream(vSTRING((path + ".bmp").c_str()), vSTREAM_READ);
                oMEMDIB memory;
                oSTREAMDIB onStream;
                oDIB& dib = store ? static_cast<oDIB&>(onStream) : memory;
                dib << stream;
                const oDIBHEADER& header = *dib.GetHeader();
                EXPECT_EQ(Ints({long(header.Width()), long(header.Height()), header.ColourDepth(), header.ColourModel(),
                                stream.Status()}),
                          Ints({width, height, long(oDIBHEADER::DepthOf(m.second)), m.second, vSTREAM_GOOD})) << file;
                EXPECT_EQ(Colours(dib), decoded) << file;
            }
}

// Each picture is built through the library's interface, written, and copied again through the stream store's bands;
// beside each goes a PPM of what it is meant to show, for ImageMagick to read and compare after this program.
TEST_F(DibTest, PicturesWrittenHereAreForImageMagickToReadBack) {
    const std::string written = std::string(ZK_DIB_FILES) + "/written";
    CreateDirectoryA(written.c_str(), nullptr);
    const struct {
        const char* name;
        long width, height;
        int depth;
        oCOLOUR_MODEL model;
    } pictures[] = {{"mono", 19, 6, 1, oMODEL_MONO}, {"pal16", 11, 7, 4, oMODEL_16},
                    {"pal256", 23, 9, 8, oMODEL_256}, {"rgb", 17, 5, 24, oMODEL_RGB}};
    for (const auto& p : pictures) {
        auto pattern = [&p](long x, long y) {
            return static_cast<unsigned long>(x * 0x0B1703 + y * 0x2A0511 + x * y) % (1UL << p.depth);
        };
        Pixels meant;
        for (long y = 0; y < p.height; ++y)
            for (long x = 0; x < p.width; ++x)
                meant.push_back(p.depth == 24 ? RGB(pattern(x, y) >> 16, pattern(x, y) >> 8 & 0xFF, pattern(x, y))
                                              : PaletteColour(pattern(x, y)));
        std::string path = written + "/" + p.name;
        {
            oMEMDIB dib;
            dib.SetHeader(oDIBHEADER(p.width, p.height, 96, 96, p.model));
            Bytes picture = Archive(p.width, p.height, p.depth, 0, pattern);
            if (p.depth <= 8)
                dib.SetPalette(oDIBPALETTE(reinterpret_cast<RGBQUAD*>(&picture[54]), 1 << p.depth));
            unsigned long stride = oDIBHEADER::LineBytes(p.width, p.depth);
            unsigned char* lines = picture.data() + picture.size() - stride * p.height;
            for (long first = 0; first < p.height; first += 2)
                ASSERT_TRUE(
                    dib.SetImageLines(lines + first * stride, p.model, first, std::min(first + 1, p.height - 1)));
            vFILE file(vSTRING((path + ".bmp").c_str()), vSTREAM_CREATE);
            dib >> file;
            EXPECT_EQ(file.Status(), vSTREAM_GOOD) << p.name;
        }
        vFILE source(vSTRING((path + ".bmp").c_str()), vSTREAM_READ);
        vFILE copy(vSTRING((path + "-copy.bmp").c_str()), vSTREAM_CREATE);
        oSTREAMDIB onStream;
        onStream << source;
        onStream >> copy;
        EXPECT_EQ(Colours(onStream), meant) << p.name;
        WritePpm(path + ".ppm", p.width, p.height, meant);
        WritePpm(path + "-copy.ppm", p.width, p.height, meant);
    }
}

}  // namespace
