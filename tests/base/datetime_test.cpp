#include "support/zktest.h"
#include "support/streamform.h"

#include "base/datetime.h"

namespace {

TEST(DateTimeTest, ArgumentsComeDayFirstAndAreCutToSixteenBits)
{
    vDATETIME date(24, 12, 1996, 23, 59, 58);
    EXPECT_EQ(date.Year()(), 1996);
    EXPECT_EQ(date.Day()(), 24);
    EXPECT_EQ(date.Second()(), 58);
    EXPECT_EQ(vDATETIME(1, 1, 0x10007, 0, 0, 0).Year()(), 7);
}

TEST(DateTimeTest, SubtractionChangesTheLeftFieldByFieldWithoutBorrow)
{
    vDATETIME a(1, 1, 2000, 5, 0, 30);
    vDATETIME& result = a - vDATETIME(1, 1, 1990, 2, 1, 10);
    EXPECT_EQ(&result, &a);
    EXPECT_EQ(a.Year()(), 10);
    EXPECT_EQ(a.Hour()(), 3);
    EXPECT_EQ(a.Minute()(), 65535);
}

TEST(DateTimeTest, ComparisonIsChronologicalFromTheYearDown)
{
    vDATETIME early(31, 12, 1995, 23, 59, 59);
    vDATETIME late(1, 1, 1996, 0, 0, 0);
    EXPECT_TRUE(late > early && early < late && early <= late && early != late);
    EXPECT_FALSE(early > late || early >= late);
    EXPECT_TRUE(vDATETIME(1, 1, 1996, 0, 0, 1) > late);
    vDATETIME same = late;
    EXPECT_TRUE(same == late && same >= late && same <= late);
    EXPECT_FALSE(same > late || same < late);
}

TEST(DateTimeTest, TextFormsPutTheTimeFirst)
{
    vDATETIME date(24, 12, 1996, 23, 59, 58);
    EXPECT_STREQ(date.FullDate()(), "24 December 1996");
    EXPECT_STREQ(date.Stamp()(), "11:59:58 pm 24 December 1996");
    EXPECT_STREQ(vDATETIME(1, 1, 2000, 0, 5, 9).Time12()(), "12:05:09 am");
    EXPECT_STREQ(vDATETIME(1, 1, 2000, 12, 0, 0).Time12()(), "12:00:00 pm");
}

// Six words in field order, which is not the order of the constructor.
TEST(DateTimeTest, StreamFormIsSixWordsYearFirst)
{
    vDATETIME when(vINT(24), vINT(12), vINT(1996), vINT(23), vINT(59), vINT(58));
    zktest::StreamBytes bytes{0xCC, 0x07, 12, 0, 24, 0, 23, 0, 59, 0, 58, 0};
    EXPECT_EQ(zktest::StreamForm(when), bytes);
    vDATETIME read;
    EXPECT_EQ(zktest::ReadStreamForm(bytes, read), vSTREAM_GOOD);
    EXPECT_TRUE(read == when);
}

}  // namespace
