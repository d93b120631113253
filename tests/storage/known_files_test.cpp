// Whether another program changed a file.
#include "storage/known_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace pistaro {

namespace {

class AKnownFile : public testing::Test {
protected:
    AKnownFile() {
        WriteBytes(file_, "one");
        files_.Remember(file_, "one");
    }

    TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "x.trk";
    KnownFiles files_;
};

} // namespace

TEST_F(AKnownFile, IsAsItWasLeft) {
    EXPECT_FALSE(files_.IsChanged(file_));
    EXPECT_FALSE(files_.IsNewlyChanged(file_));
}

TEST_F(AKnownFile, IsChangedByOtherBytesOfTheSameLengthAndTime) {
    const auto time = std::filesystem::last_write_time(file_);
    WriteBytes(file_, "two");
    std::filesystem::last_write_time(file_, time);

    EXPECT_TRUE(files_.IsChanged(file_));
}

TEST_F(AKnownFile, IsNotChangedByALaterTimeAlone) {
    std::filesystem::last_write_time(file_, std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));

    EXPECT_FALSE(files_.IsChanged(file_));
}

TEST_F(AKnownFile, TellsEachChangeOnce) {
    WriteBytes(file_, "two");
    EXPECT_TRUE(files_.IsNewlyChanged(file_));
    EXPECT_FALSE(files_.IsNewlyChanged(file_));

    WriteBytes(file_, "three");
    EXPECT_TRUE(files_.IsNewlyChanged(file_));
    EXPECT_TRUE(files_.IsChanged(file_)) << "it still is";
}

TEST_F(AKnownFile, IsAsItWasWhenTheBytesComeBack) {
    WriteBytes(file_, "two");
    WriteBytes(file_, "one");

    EXPECT_FALSE(files_.IsChanged(file_));
}

TEST_F(AKnownFile, ThatIsGoneOrAFolderIsNotChanged) {
    std::filesystem::remove(file_);
    EXPECT_FALSE(files_.IsChanged(file_));

    std::filesystem::create_directory(file_);
    EXPECT_FALSE(files_.IsChanged(file_));
}

TEST_F(AKnownFile, ThatCannotBeReadAnyMoreIsChangedByAnother) {
    WriteBytes(file_, std::string(5'000'000, 'x'));

    EXPECT_TRUE(files_.IsChanged(file_));
    EXPECT_TRUE(files_.IsNewlyChanged(file_));
    EXPECT_FALSE(files_.IsNewlyChanged(file_)) << "told once";

    WriteBytes(file_, "one");
    EXPECT_FALSE(files_.IsChanged(file_));
}

TEST_F(AKnownFile, ThatWasNeverReadIsNotChanged) { EXPECT_FALSE(files_.IsChanged(folder_ / "other.trk")); }

TEST_F(AKnownFile, TellsWhetherItHeldSomethingElse) {
    EXPECT_FALSE(files_.Remember(file_, "one"));
    EXPECT_TRUE(files_.Remember(file_, "two"));
    EXPECT_FALSE(files_.Remember(folder_ / "other.trk", "one"));
}

} // namespace pistaro
