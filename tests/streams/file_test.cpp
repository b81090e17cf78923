#include "support/zktest.h"

#include <string>
#include <vector>

#include "streams/streamkinds.h"

namespace {

using Bytes = std::vector<unsigned char>;

// A temporary file path, removed at the end of the test.
class FileTest : public zktest::LeakFreeTest {
protected:
    void TearDown() override
    {
        DeleteFileA(path.c_str());
        zktest::LeakFreeTest::TearDown();
    }
    vSTRING Name() const { return vSTRING("%s", path.c_str()); }

    std::string path = zktest::TemporaryPath("zkf");
};

// Small writes wait in the buffer; the file sees them on a move, a read or
// the close.
TEST_F(FileTest, SmallWritesWaitInTheBufferUntilTheFileIsNeeded)
{
    vFILE file(Name(), vSTREAM_CREATE);
    ASSERT_EQ(file.Status(), vSTREAM_GOOD);
    for (unsigned long i = 0; i < 100; ++i)
        file.WriteULong(i);
    EXPECT_TRUE(zktest::FileBytes(path).empty());
    EXPECT_EQ(file.CurrentPos(), 400UL);
    EXPECT_EQ(file.Size(), 400UL);
    EXPECT_TRUE(file.AtEnd());
    EXPECT_EQ(file.MoveFromStart(4), 4UL);
    EXPECT_EQ(zktest::FileBytes(path).size(), 400UL);
    EXPECT_EQ(file.ReadULong(), 1UL);
    file.MoveFromEnd(0);
    file.WriteUByte(0xAA);
    EXPECT_EQ(file.Close(), 1);
    EXPECT_EQ(file.Close(), 0);
    Bytes stored = zktest::FileBytes(path);
    ASSERT_EQ(stored.size(), 401UL);
    EXPECT_EQ(stored[400], 0xAA);
}

// A move past the end is told by the status, as on every stream, and a
// write there still extends the file.
TEST_F(FileTest, AMovePastTheEndIsToldAndAWriteThereExtendsTheFile)
{
    vFILE file(Name(), vSTREAM_CREATE);
    file.WriteULong(7);
    EXPECT_EQ(file.MoveFromStart(4), 4UL);
    EXPECT_EQ(file.Status(), vSTREAM_GOOD) << "the end itself is no move past it";
    EXPECT_EQ(file.MoveFromCur(4), 8UL);
    EXPECT_EQ(file.Status(), vSTREAM_END);
    file.WriteUByte(1);
    EXPECT_EQ(file.Close(), 1);
    EXPECT_EQ(zktest::FileBytes(path).size(), 9UL);

    vFILE again(Name(), vSTREAM_READ);
    EXPECT_EQ(again.MoveFromStart(20), 20UL);
    EXPECT_EQ(again.Status(), vSTREAM_END);
}

// Blocks larger than the buffer go straight through, in order behind what
// was waiting.
TEST_F(FileTest, LargeBlocksKeepTheirPlaceBehindWaitingBytes)
{
    Bytes large(100000);
    for (size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<unsigned char>(i * 7);
    {
        vFILE file(Name(), vSTREAM_CREATE);
        file.WriteUWord(0x0102);
        EXPECT_EQ(file.WriteBlock(large.data(), large.size()), large.size());
        file.WriteUByte(3);
    }
    Bytes stored = zktest::FileBytes(path);
    ASSERT_EQ(stored.size(), large.size() + 3);
    EXPECT_EQ(Bytes(stored.begin() + 2, stored.end() - 1), large);

    vFILE reader(Name(), vSTREAM_READ);
    Bytes read(stored.size());
    EXPECT_EQ(reader.ReadByteString(read.data(), read.size()), static_cast<long>(read.size()));
    EXPECT_EQ(read, stored);
    EXPECT_EQ(reader.Status(), vSTREAM_GOOD);
    EXPECT_TRUE(reader.AtEnd());
}

// A file that cannot be opened says why, and every read ends; a read from
// a closed file is refused by the platform yet also ends, for callers look
// for the end alone.
TEST_F(FileTest, FilesThatCannotBeOpenedOrAreClosedFailCleanly)
{
    struct Case {
        const char* what;
        std::string name;
        unsigned long mode;
        vSTREAMSTATUS opened;
    };
    const Case cases[] = {
        {"missing, for reading", path + ".missing", vSTREAM_READ, vSTREAM_READFAIL},
        {"missing, for writing", path + ".missing", vSTREAM_WRITE, vSTREAM_WRITEFAIL},
        {"in a missing folder", path + ".none\\new.bin", vSTREAM_CREATE, vSTREAM_WRITEFAIL},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        vFILE file(vSTRING("%s", c.name.c_str()), c.mode);
        EXPECT_EQ(file.Status(), c.opened);
        EXPECT_EQ(file.WriteULong(1), 0);
        EXPECT_EQ(file.Status(), vSTREAM_WRITEFAIL);
        EXPECT_EQ(file.ReadULong(), 0UL);
        EXPECT_EQ(file.Status(), vSTREAM_END);
        EXPECT_EQ(file.CurrentPos(), 0UL);
        EXPECT_EQ(file.Size(), 0UL);
        EXPECT_EQ(file.MoveFromStart(10), 0UL);
        EXPECT_EQ(file.Close(), 0);
        EXPECT_EQ(file.ReOpen(), 0);
    }
}

TEST_F(FileTest, ReOpeningStartsAgainAtTheBeginningWithoutEmptyingTheFile)
{
    vFILE file(Name(), vSTREAM_CREATE);
    file.WriteSLong(-9);
    file.WriteSWord(-8);
    EXPECT_EQ(file.ReOpen(), 1);
    EXPECT_EQ(file.CurrentPos(), 0UL);
    EXPECT_EQ(file.Size(), 6UL);
    EXPECT_EQ(file.ReadSLong(), -9);
    EXPECT_EQ(file.ReadSWord(), -8);
    EXPECT_EQ(file.ReadSByte(), 0);
    EXPECT_EQ(file.Status(), vSTREAM_END);
}

// The copy writes to the same file, through its own buffer, starting with
// a clean status; each closes its own handle.
TEST_F(FileTest, ACopyWritesToTheSameFileWithItsOwnBufferAndStatus)
{
    vFILE file(Name(), vSTREAM_CREATE);
    file.ReadUByte();
    ASSERT_EQ(file.Status(), vSTREAM_END);
    {
        vFILE copy(file);
        EXPECT_EQ(copy.Status(), vSTREAM_GOOD);
        EXPECT_EQ(&copy.Name(), &file.Name());
        copy.WriteULong(0x44434241);
    }
    file.MoveFromEnd(0);
    file.WriteUByte('E');
    file.Close();
    EXPECT_EQ(zktest::FileBytes(path), (Bytes{'A', 'B', 'C', 'D', 'E'}));
}

// Reads come from a block read ahead; a write or a move in the middle of it
// lands where the reader stands, not where the platform has read to.
TEST_F(FileTest, ReadingAheadNeverShowsInPositionsWritesOrMoves)
{
    const unsigned long longs = 10000;
    {
        vFILE file(Name(), vSTREAM_CREATE);
        for (unsigned long i = 0; i < longs; ++i)
            file.WriteULong(i);
    }
    vFILE file(Name(), vSTREAM_WRITE);
    for (unsigned long i = 0; i < 100; ++i)
        ASSERT_EQ(file.ReadULong(), i);
    EXPECT_EQ(file.CurrentPos(), 400UL);
    EXPECT_EQ(file.Size(), longs * 4);
    file.WriteULong(0xFFFFFFFFUL);
    EXPECT_EQ(file.ReadULong(), 101UL);
    EXPECT_EQ(file.MoveFromCur(-8), 400UL);
    EXPECT_EQ(file.ReadULong(), 0xFFFFFFFFUL);

    Bytes rest(longs * 4 - 404 + 2);
    EXPECT_EQ(file.ReadByteString(rest.data(), rest.size()), static_cast<long>(rest.size() - 2));
    EXPECT_EQ(file.Status(), vSTREAM_END);
    EXPECT_EQ(rest[0], 101);
    EXPECT_TRUE(file.AtEnd());
    file.MoveFromStart(longs * 4 - 4);
    EXPECT_EQ(file.ReadULong(), longs - 1);
    file.Close();
    Bytes stored = zktest::FileBytes(path);
    ASSERT_EQ(stored.size(), longs * 4);
    EXPECT_EQ(stored[400], 0xFF);
    EXPECT_EQ(stored[404], 101);
}

}  // namespace
