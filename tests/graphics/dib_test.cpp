#include <cstdlib>

#include "graphics/colour.h"
#include "graphics/dibtest.h"
#include "support/zktest.h"

namespace {

using namespace dibtest;
using DibTest = zktest::LeakFreeTest;

oDIBPALETTE Ramp(unsigned short count, int step)
{
    std::vector<RGBQUAD> quads;
    for (unsigned short i = 0; i < count; ++i)
        quads.push_back(RGBQUAD{BYTE(i * step), BYTE(255 - i * step), BYTE(i), 0});
    return oDIBPALETTE(quads.data(), count);
}

TEST_F(DibTest, SetHeaderKeepsThePicturesOwnPalette)
{
    oMEMDIB dib;
    EXPECT_EQ(dib.GetPalette(nullptr), 0);
    oDIBPALETTE* palette = nullptr;
    EXPECT_EQ(dib.GetPalette(&palette), 0);
    EXPECT_EQ(palette, nullptr);

    dib.SetPalette(Ramp(4, 10));
    dib.GetPalette(&palette);
    dib.SetHeader(oDIBHEADER(3, 2, 0, 0, oMODEL_MONO));
    EXPECT_EQ(dib.GetHeader()->Palette(), palette);
    oDIBPALETTE foreign = Ramp(2, 1);
    oDIBHEADER withForeign(3, 2, 0, 0, oMODEL_MONO);
    withForeign.Palette(&foreign);
    dib.SetHeader(withForeign);
    EXPECT_EQ(dib.GetHeader()->Palette(), palette);
}

TEST_F(DibTest, SetPaletteTwiceKeepsOnePaletteObject)
{
    oMEMDIB dib;
    dib.SetPalette(Ramp(4, 10));
    oDIBPALETTE* first = nullptr;
    dib.GetPalette(&first);
    dib.SetPalette(Ramp(16, 3));
    oDIBPALETTE* second = nullptr;
    EXPECT_EQ(dib.GetPalette(&second), 16);
    EXPECT_EQ(first, second);
    EXPECT_EQ(dib.GetHeader()->Palette(), second);
}

TEST_F(DibTest, CopiesShareThePaletteAndLetItGoOnce)
{
    auto original = std::make_unique<oMEMDIB>(7);
    original->SetHeader(oDIBHEADER(2, 2, 0, 0, oMODEL_16));
    original->SetPalette(Ramp(16, 5));
    oMEMDIB copy(*original);
    oMEMDIB assigned;
    assigned.SetPalette(Ramp(2, 1));
    assigned = *original;
    oDIBPALETTE* mine = nullptr;
    oDIBPALETTE* theirs = nullptr;
    original->GetPalette(&mine);
    copy.GetPalette(&theirs);
    EXPECT_EQ(mine, theirs);
    assigned.GetPalette(&theirs);
    EXPECT_EQ(mine, theirs);
    EXPECT_EQ(copy.Tag(), 7);
    // The palette outlives the picture that made it, and the leak check sees it freed at the end.
    original.reset();
    EXPECT_EQ(copy.GetPalette(nullptr), 16);
}

// One line in each model from a picture of another, through its palette.
struct CONVERSION {
    oCOLOUR_MODEL from;
    oCOLOUR_MODEL to;
    std::vector<unsigned char> line;
    std::vector<unsigned char> expected;
};

TEST_F(DibTest, LinesConvertBetweenModelsThroughThePalette)
{
    // Colours of Ramp(16, 10): index i is (red i, green 255 - 10i, blue 10i).
    const std::vector<CONVERSION> cases = {
        // Indices become their colours, blue first.
        {oMODEL_16, oMODEL_RGB, {0x1F, 0x20}, {10, 245, 1, 150, 105, 15, 20, 235, 2, 0, 255, 0}},
        // Colours become the index of the nearest entry.
        {oMODEL_RGB, oMODEL_16, {10, 245, 1, 150, 105, 15, 0, 254, 0, 19, 236, 2}, {0x1F, 0x02, 0, 0}},
        // An index that fits the smaller depth stays; one that does not goes to the nearest that fits.
        {oMODEL_256, oMODEL_MONO, {1, 0, 15, 1}, {0xB0, 0, 0, 0}},
        // Past the palette an index is black, and black is nearest to entry 13.
        {oMODEL_256, oMODEL_16, {1, 15, 200, 0}, {0x1F, 0xD0, 0, 0}},
        {oMODEL_MONO, oMODEL_256, {0xA0}, {1, 0, 1, 0}},
    };
    for (const CONVERSION& c : cases) {
        oMEMDIB dib;
        dib.SetHeader(oDIBHEADER(4, 1, 0, 0, c.from));
        dib.SetPalette(Ramp(16, 10));
        std::vector<unsigned char> line = c.line;
        line.resize(oDIBHEADER::LineBytes(4, oDIBHEADER::DepthOf(c.from)));
        ASSERT_TRUE(dib.SetImageLines(line.data(), c.from, 0, 0)) << c.from;
        std::vector<unsigned char> out(oDIBHEADER::LineBytes(4, oDIBHEADER::DepthOf(c.to)), 0xEE);
        oCOLOUR_MODEL model = c.to;
        ASSERT_TRUE(dib.GetImageLines(0, 0, out.data(), &model)) << c.from << " to " << c.to;
        std::vector<unsigned char> expected = c.expected;
        expected.resize(out.size());
        EXPECT_EQ(out, expected) << c.from << " to " << c.to;
    }
}

TEST_F(DibTest, WithoutAPaletteTheColoursAreAGreyRamp)
{
    oMEMDIB dib;
    dib.SetHeader(oDIBHEADER(4, 1, 0, 0, oMODEL_RGB));
    unsigned char rgb[12] = {0, 0, 0, 255, 255, 255, 128, 128, 128, 0, 0, 255};
    ASSERT_TRUE(dib.SetImageLines(rgb, oMODEL_RGB, 0, 0));
    unsigned char mono[4] = {};
    oCOLOUR_MODEL model = oMODEL_MONO;
    ASSERT_TRUE(dib.GetImageLines(0, 0, mono, &model));
    EXPECT_EQ(mono[0], 0x40 | 0x20);  // black, white, mid grey to white, red is dark
    unsigned char sixteen[4] = {};
    model = oMODEL_16;
    ASSERT_TRUE(dib.GetImageLines(0, 0, sixteen, &model));
    EXPECT_EQ(std::vector<int>({sixteen[0], sixteen[1]}), std::vector<int>({0x0F, 0x84}));

    oMEMDIB grey;
    grey.SetHeader(oDIBHEADER(2, 1, 0, 0, oMODEL_MONO));
    unsigned char bits[4] = {0x40};
    grey.SetImageLines(bits, oMODEL_MONO, 0, 0);
    unsigned char back[8] = {};
    model = oMODEL_RGB;
    ASSERT_TRUE(grey.GetImageLines(0, 0, back, &model));
    EXPECT_EQ(std::vector<int>(back, back + 6), std::vector<int>({0, 0, 0, 255, 255, 255}));
}

TEST_F(DibTest, TheStreamFormIsAFileHeaderThenTheClipboardBlock)
{
    oMEMDIB dib;
    dib.SetHeader(oDIBHEADER(5, 3, 300, 150, oMODEL_16));
    dib.SetPalette(Ramp(16, 7));
    std::vector<unsigned char> lines(4 * 3);
    for (size_t i = 0; i < lines.size(); ++i)
        lines[i] = static_cast<unsigned char>(i * 17);
    dib.SetImageLines(lines.data(), oMODEL_16, 0, 2);
    vMEMSTREAM stream;
    dib >> stream;
    Bytes written(stream.Size());
    stream.MoveFromStart(0);
    stream.ReadByteString(written.data(), stream.Size());

    ASSERT_EQ(written.size(), 14u + 40 + 64 + 12);
    EXPECT_EQ(std::vector<unsigned long>({Get(written, 0, 2), Get(written, 2, 4), Get(written, 6, 4),
                                          Get(written, 10, 4)}),
              std::vector<unsigned long>({0x4D42, 130, 0, 118}));
    EXPECT_EQ(Bytes(written.begin() + 14, written.begin() + 54),
              Bytes(reinterpret_cast<const unsigned char*>(&dib.GetHeader()->Info()),
                    reinterpret_cast<const unsigned char*>(&dib.GetHeader()->Info()) + 40));
    const oDIBPALETTE colours = Ramp(16, 7);
    const unsigned char* quads = reinterpret_cast<const unsigned char*>(colours.GetRgbQuad());
    EXPECT_EQ(Bytes(written.begin() + 54, written.begin() + 118), Bytes(quads, quads + 64));
    EXPECT_EQ(Bytes(written.begin() + 118, written.end()), lines);
}

TEST_F(DibTest, APictureReadAndWrittenAgainIsTheSameBytes)
{
    for (int depth : {1, 4, 8, 24}) {
        Bytes archive = Archive(7, 5, depth, 0, [depth](long x, long y) {
            return static_cast<unsigned long>(x * 31 + y * 7) % (depth == 24 ? 0xFFFFFF : 1UL << depth);
        });
        MemoryStream source(archive);
        oMEMDIB dib;
        dib << *source;
        ASSERT_EQ(source->Status(), vSTREAM_GOOD) << depth;
        EXPECT_EQ(source->CurrentPos(), archive.size()) << depth;
        vMEMSTREAM target;
        dib >> target;
        Bytes written(target.Size());
        target.MoveFromStart(0);
        target.ReadByteString(written.data(), target.Size());
        EXPECT_EQ(written, archive) << depth;
    }
}

TEST_F(DibTest, OtherProgramsResolutionsReadSlightlyLow)
{
    Bytes archive = Archive(2, 2, 24, 0, [](long, long) { return 0UL; });
    Put(archive, 38, 11811, 4);
    MemoryStream source(archive);
    oMEMDIB dib;
    dib << *source;
    EXPECT_EQ(dib.GetHeader()->HorzDPI(), 295UL);
    EXPECT_EQ(dib.GetHeader()->Info().biXPelsPerMeter, 11811);
}

// The same bytes read into both stores, each from a stream of its own.
struct READBOTH {
    explicit READBOTH(const Bytes& bytes) : first(bytes), second(bytes)
    {
        memory << *first;
        onStream << *second;
    }

    std::vector<const oDIB*> Pictures() const { return {&memory, &onStream}; }

    MemoryStream first;
    MemoryStream second;
    oMEMDIB memory;
    oSTREAMDIB onStream;
};

// A named way to spoil a good archive of 8 bits, 6 by 4, with 256 colours.
struct SPOILED {
    const char* name;
    std::function<void(Bytes&)> spoil;
};

TEST_F(DibTest, BadStreamsLeaveAnEmptyPictureAndAnEndedStream)
{
    const SPOILED cases[] = {
        {"not a bitmap", [](Bytes& b) { b[1] = 'A'; }},
        {"height 0", [](Bytes& b) { Put(b, 22, 0, 4); }},
        {"width 0", [](Bytes& b) { Put(b, 18, 0, 4); }},
        {"negative width", [](Bytes& b) { Put(b, 18, static_cast<unsigned long>(-6), 4); }},
        {"most negative height", [](Bytes& b) { Put(b, 22, 0x80000000UL, 4); }},
        {"size not width by depth", [](Bytes& b) { Put(b, 34, 4 * 6, 4); }},
        {"huge size", [](Bytes& b) { Put(b, 34, 0xFFFFFFF0UL, 4); }},
        {"257 colours", [](Bytes& b) { Put(b, 46, 257, 4); }},
        {"more colours than the depth has", [](Bytes& b) {
             Put(b, 28, 4, 2);
             Put(b, 34, 0, 4);
             Put(b, 46, 17, 4);
         }},
        {"offset inside the colours", [](Bytes& b) { Put(b, 10, 54 + 100, 4); }},
        {"offset inside the header", [](Bytes& b) { Put(b, 10, 20, 4); }},
        {"offset past the end", [](Bytes& b) { Put(b, 10, static_cast<unsigned long>(b.size() + 1), 4); }},
        {"offset leaving too few lines", [](Bytes& b) { Put(b, 10, 54 + 1024 + 4, 4); }},
        {"header larger than the offset allows", [](Bytes& b) { Put(b, 14, 1024, 4); }},
        {"old short header", [](Bytes& b) { Put(b, 14, 12, 4); }},
        {"two planes", [](Bytes& b) { Put(b, 26, 2, 2); }},
        {"depth 3", [](Bytes& b) { Put(b, 28, 3, 2); }},
        {"depth 32", [](Bytes& b) { Put(b, 28, 32, 2); }},
        {"run-length coded", [](Bytes& b) { Put(b, 30, BI_RLE8, 4); }},
        {"huge width", [](Bytes& b) { Put(b, 18, 0x7FFFFFFF, 4); }},
        {"huge height", [](Bytes& b) { Put(b, 22, 0x7FFFFFFF, 4); }},
        {"lines cut short", [](Bytes& b) { b.resize(b.size() - 1); }},
        {"colours cut short", [](Bytes& b) { b.resize(54 + 200); }},
        {"header cut short", [](Bytes& b) { b.resize(30); }},
        {"nothing at all", [](Bytes& b) { b.clear(); }},
    };
    const Bytes good = Archive(6, 4, 8, 0, [](long x, long y) { return static_cast<unsigned long>(x + y); });
    for (const SPOILED& c : cases) {
        Bytes bytes = good;
        c.spoil(bytes);
        READBOTH read(bytes);
        unsigned char line[64];
        for (const oDIB* dib : read.Pictures()) {
            EXPECT_EQ(dib->GetHeader()->Height(), 0UL) << c.name;
            EXPECT_EQ(dib->GetPalette(nullptr), 0) << c.name;
            EXPECT_FALSE(dib->GetImageLines(0, 0, line, nullptr)) << c.name;
        }
        EXPECT_EQ(read.first->Status(), vSTREAM_END) << c.name;
        EXPECT_EQ(read.second->Status(), vSTREAM_END) << c.name;
    }
}

TEST_F(DibTest, ABadFileEndsTheFileStreamToo)
{
    char folder[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    const vSTRING path(std::string(std::string(folder) + "zk-bad.bmp").c_str());
    Bytes bytes = Archive(3, 3, 24, 0, [](long, long) { return 0UL; });
    Put(bytes, 22, 0, 4);
    {
        vFILE file(path, vSTREAM_CREATE);
        file.WriteBlock(bytes.data(), static_cast<unsigned long>(bytes.size()));
    }
    for (int store = 0; store < 2; ++store) {
        vFILE file(path, vSTREAM_READ);
        oMEMDIB memory;
        oSTREAMDIB onStream;
        if (store)
            onStream << file;
        else
            memory << file;
        EXPECT_EQ(file.Status(), vSTREAM_END) << store;
        EXPECT_EQ(file.CurrentPos(), bytes.size()) << store;
    }
    DeleteFileA(path());
}

// A deterministic run of numbers for the mutations.
class RANDOM {
public:
    explicit RANDOM(unsigned long seed) : state(seed) {}
    unsigned long Next(unsigned long below)
    {
        state = state * 1103515245UL + 12345UL;
        return below ? (state >> 8) % below : 0;
    }

private:
    unsigned long state;
};

// Reads the bytes into both stores and, where a picture came, every line in
// bands and in another model; answers how many of the two reads took.
int ReadEveryWay(const Bytes& bytes)
{
    READBOTH read(bytes);
    int taken = 0;
    for (const oDIB* dib : read.Pictures()) {
        const oDIBHEADER& header = *dib->GetHeader();
        if (!header.Height())
            continue;
        ++taken;
        Bytes band(oDIBHEADER::LineBytes(header.Width(), 24) * 3);
        for (unsigned long line = 0; line < header.Height(); line += 3) {
            unsigned long last = line + 2 < header.Height() ? line + 2 : header.Height() - 1;
            oCOLOUR_MODEL other = header.ColourModel() == oMODEL_RGB ? oMODEL_16 : oMODEL_RGB;
            EXPECT_TRUE(dib->GetImageLines(line, last, band.data(), nullptr));
            EXPECT_TRUE(dib->GetImageLines(line, last, band.data(), &other));
        }
    }
    return taken;
}

// Spoils a good archive in one of several ways: a byte of the head, a field of
// the head set to a value that often breaks readers, a bit anywhere, a cut,
// or garbage after the end.
Bytes Mutate(const Bytes& good, RANDOM& random)
{
    static const size_t fields[] = {2, 10, 14, 18, 22, 26, 28, 30, 34, 38, 46, 50};
    static const unsigned long values[] = {0, 1, 2, 3, 8, 24, 255, 256, 257, 0x7FFF, 0xFFFF, 0x7FFFFFFF,
                                           0x80000000UL, 0xFFFFFFFFUL, 0xFFFFFFFEUL, 54, 118, 1078};
    Bytes bytes = good;
    size_t head = std::min<size_t>(bytes.size(), 54 + 64);
    switch (random.Next(5)) {
    case 0:
        bytes[random.Next(head)] = static_cast<unsigned char>(random.Next(256));
        break;
    case 1: {
        size_t field = fields[random.Next(sizeof fields / sizeof *fields)];
        unsigned long value = values[random.Next(sizeof values / sizeof *values)];
        value = random.Next(2) ? value : value + good.size() - random.Next(3);
        Put(bytes, field, value, field == 26 || field == 28 ? 2 : 4);
        break;
    }
    case 2:
        bytes[random.Next(bytes.size())] ^= static_cast<unsigned char>(1 << random.Next(8));
        break;
    case 3:
        bytes.resize(random.Next(bytes.size()));
        break;
    default:
        bytes.resize(bytes.size() + 1 + random.Next(64), static_cast<unsigned char>(random.Next(256)));
        break;
    }
    return bytes;
}

unsigned long Rounds()
{
    const char* asked = std::getenv("ZK_MUTATION_ROUNDS");
    return asked && std::atol(asked) > 0 ? static_cast<unsigned long>(std::atol(asked)) : 100000UL;
}

TEST_F(DibTest, MutatedStreamsAlwaysEndCleanly)
{
    std::vector<Bytes> goods;
    for (int depth : {1, 4, 8, 24})
        for (int topDown : {0, 1})
            goods.push_back(Archive(5 + depth % 3, 4, depth, topDown,
                                    [depth](long x, long y) { return static_cast<unsigned long>(x ^ y) % 2; }));
    RANDOM random(20261122);
    unsigned long rounds = Rounds();
    unsigned long blocks = vMemLiveBlocks();
    unsigned long taken = 0;
    for (unsigned long round = 0; round < rounds; ++round) {
        taken += ReadEveryWay(Mutate(goods[round % goods.size()], random));
        ASSERT_EQ(vMemLiveBlocks(), blocks) << "round " << round;
    }
    // Harmless mutations still read, so both sides of every check ran.
    EXPECT_GT(taken, rounds / 10);
    EXPECT_LT(taken, rounds * 2);
}

}  // namespace
