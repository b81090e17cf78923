#include <cstring>

#include "base/system.h"
#include "support/zktest.h"

namespace {

class ExceptionTest : public zktest::LeakFreeTest {};

TEST_F(ExceptionTest, ArmedOnlyOnceTheMessageTextIsAskedFor)
{
    DEFEXCEP exception;
    EXPECT_FALSE(exception.Armed());
    exception.CaptionText();
    EXPECT_FALSE(exception.Armed());
    char* message = exception.MessageText();
    EXPECT_TRUE(exception.Armed());
    EXPECT_EQ(exception.MessageText(), message);
    EXPECT_NE(exception.CaptionText(), message);
}

TEST_F(ExceptionTest, TextBuffersHoldTwoHundredFiftyFiveCharacters)
{
    DEFEXCEP exception;
    std::memset(exception.MessageText(), 'm', 255);
    exception.MessageText()[255] = 0;
    std::memset(exception.CaptionText(), 'c', 255);
    exception.CaptionText()[255] = 0;
    EXPECT_EQ(std::strlen(exception.MessageText()), 255u);
    EXPECT_EQ(exception.MessageText()[0], 'm');
}

TEST_F(ExceptionTest, UnarmedComplaintOnlyLowersTheFlag)
{
    DEFEXCEP exception;
    vSYSTEM::SetExceptionFlag(1);
    exception.Raise(nullptr);
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
}

TEST_F(ExceptionTest, ArmedComplaintShowsItsTextsAndLowersTheFlag)
{
    DEFEXCEP exception;
    std::strcpy(exception.MessageText(), "Close some windows, please.");
    std::strcpy(exception.CaptionText(), "Memory Test Caption");
    vSYSTEM::SetExceptionFlag(1);
    zktest::BoxWatcher watcher("Memory Test Caption", IDOK);
    exception.Raise(nullptr);
    EXPECT_TRUE(watcher.Seen());
    EXPECT_EQ(watcher.Text(), "Close some windows, please.");
    EXPECT_EQ(vSYSTEM::GetExceptionFlag(), 0);
}

TEST_F(ExceptionTest, HeapExceptionsUseTheSharedAllocator)
{
    unsigned long blocks = vMemLiveBlocks();
    vEXCEPTION* exception = new DEFEXCEP;
    EXPECT_EQ(vMemLiveBlocks(), blocks + 1);
    delete exception;
    EXPECT_EQ(vMemLiveBlocks(), blocks);
}

}  // namespace
