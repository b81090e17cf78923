#include "support/zktest.h"

#include "streams/stream.h"

namespace {

TEST(ArchiveTest, APlainArchiveIsNotAStream)
{
    vARCHIVE archive;
    EXPECT_EQ(archive.IsStream(), 0);
}

}  // namespace
