#include "support/zktest.h"

#include "streams/streamkinds.h"

namespace {

using zktest::Bytes;
using zktest::FileBytes;

// A file of the test's own, removed at its end.
class FileTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override { DeleteFileA(path.c_str()), zktest::LeakFreeTest::TearDown(); }
    std::string path = zktest::TemporaryPath();
    vSTRING name{"%s", path.c_str()};
};

// Small writes wait in the buffer; the file sees them on a move, a read or the close. A move past the end is told by
// the status and a write there still extends the file. A copy writes to the same file through its own buffer with a
// clean status; reopening starts again at the beginning.
TEST_F(FileTest, SmallWritesWaitInTheBufferUntilTheFileIsNeeded) {
    vFILE file(name, vSTREAM_CREATE);
    for (unsigned long i = 0; i < 100; ++i)
        file.WriteULong(i);
    EXPECT_TRUE(FileBytes(path).empty() && file.CurrentPos() + file.Size() == 800);
    EXPECT_TRUE(file.MoveFromStart(4) == 4 && FileBytes(path).size() == 400 && file.ReadULong() == 1);
    EXPECT_TRUE(file.MoveFromEnd(0) == 400 && file.Status() == vSTREAM_GOOD) << "the end itself is no move past it";
    EXPECT_TRUE(file.MoveFromCur(4) == 404 && file.Status() == vSTREAM_END);
    file.WriteSWord(-8);
    file.MoveFromEnd(0);
    {
        vFILE copy(file);
        EXPECT_TRUE(copy.Status() == vSTREAM_GOOD && &copy.Name() == &file.Name());
        copy.WriteUByte('E');
    }
    EXPECT_EQ(file.Close() * 10 + file.Close(), 10);
    Bytes stored = FileBytes(path);
    EXPECT_EQ(Bytes(stored.begin() + 399, stored.end()), (Bytes{0, 0, 0, 0, 0, 0xF8, 0xFF, 'E'}));
    EXPECT_TRUE(file.ReOpen() == 1 && file.CurrentPos() + file.Size() == 407 && file.MoveFromStart(404) == 404);
    EXPECT_TRUE(file.ReadSWord() == -8 && file.ReadSWord() == 0 && file.Status() == vSTREAM_END);
}

// Reads come from a block read ahead; a write or a move in the middle of it lands where the reader stands, not where
// the platform has read to. Blocks larger than the buffer go straight through, behind what was waiting.
TEST_F(FileTest, ReadingAheadNeverShowsInPositionsWritesOrMoves) {
    const unsigned long longs = 10000;
    {
        vFILE file(name, vSTREAM_CREATE);
        for (unsigned long i = 0; i < longs; ++i)
            file.WriteULong(i);
    }
    vFILE file(name, vSTREAM_WRITE);
    for (unsigned long i = 0; i < 100; ++i)
        ASSERT_EQ(file.ReadULong(), i);
    EXPECT_TRUE(file.CurrentPos() == 400 && file.Size() == longs * 4);
    file.WriteULong(0xFFFFFFFFUL);
    EXPECT_TRUE(file.ReadULong() == 101 && file.MoveFromCur(-8) == 400 && file.ReadULong() == 0xFFFFFFFFUL);
    Bytes rest(longs * 4 - 404 + 2);
    EXPECT_EQ(file.ReadByteString(rest.data(), rest.size()), static_cast<long>(rest.size() - 2));
    EXPECT_TRUE(file.Status() == vSTREAM_END && rest[0] == 101 && file.AtEnd());
    file.MoveFromStart(longs * 4 - 4);
    EXPECT_EQ(file.ReadULong(), longs - 1);
    file.WriteUWord(0x0102);
    EXPECT_EQ(file.WriteBlock(rest.data(), rest.size()), rest.size());
    file.Close();
    Bytes stored = FileBytes(path);
    ASSERT_EQ(stored.size(), longs * 4 + 2 + rest.size());
    EXPECT_EQ(Bytes({stored[400], stored[404], stored[longs * 4], stored[longs * 4 + 2]}), Bytes({0xFF, 101, 2, 101}));
}

// A file that cannot be opened says why; then every write fails and every
// read ends, for callers look for the end alone.
TEST_F(FileTest, FilesThatCannotBeOpenedFailCleanly) {
    const struct {
        std::string name;
        unsigned long mode;
        vSTREAMSTATUS opened;
    } cases[] = {{path + ".missing", vSTREAM_READ, vSTREAM_READFAIL},
                 {path + ".missing", vSTREAM_WRITE, vSTREAM_WRITEFAIL},
                 {path + ".none\\new.bin", vSTREAM_CREATE, vSTREAM_WRITEFAIL}};
    for (const auto& c : cases) {
        vFILE file(vSTRING("%s", c.name.c_str()), c.mode);
        EXPECT_EQ(file.Status(), c.opened) << c.name;
        EXPECT_TRUE(file.WriteULong(1) == 0 && file.Status() == vSTREAM_WRITEFAIL);
        EXPECT_TRUE(file.ReadULong() == 0 && file.Status() == vSTREAM_END);
        EXPECT_EQ(file.CurrentPos() + file.Size() + file.MoveFromStart(10), 0UL);
        EXPECT_EQ(file.Close() + file.ReOpen(), 0);
    }
}

}  // namespace
