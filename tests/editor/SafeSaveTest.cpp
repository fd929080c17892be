#include "editor/SafeSave.h"
#include "editor/RichEdit.h"
#include "support/FileSizeLimit.h"
#include "support/TempDir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

struct SafeSaveTest : ::testing::Test {
    TempDir dir;
    ~SafeSaveTest() override { SetTemporaryFilesRefusedForTesting(false); }

    bool Save(const std::string& path, std::string_view bytes, QString* error = nullptr) {
        QString ignored;
        return SaveBytesSafely(QString::fromStdString(path), bytes, error ? error : &ignored);
    }
    // The names in the folder, to see that nothing was left behind.
    std::vector<std::string> Entries() const {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(dir.path()))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

const std::string kOld = "old contents\r\nkept byte for byte\r\n";
const std::string kLarge(64 * 1024, 'x');

} // namespace

TEST_F(SafeSaveTest, ReplacesTheFileKeepingItsPermissionsAndLinks) {
    std::string first = dir.write("first.txt", kOld);
    fs::create_hard_link(first, dir.file("second.txt"));
    ASSERT_TRUE(Save(first, "shared"));
    EXPECT_EQ(ReadFileBytes(dir.file("second.txt")), "shared");

    std::string target = dir.write("target.txt", kOld);
    ::chmod(target.c_str(), 0640);
    fs::create_symlink("target.txt", dir.file("link.txt"));
    ASSERT_TRUE(Save(dir.file("link.txt"), "new"));
    EXPECT_TRUE(fs::is_symlink(dir.file("link.txt")));
    EXPECT_EQ(ReadFileBytes(target), "new");
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(Save(dir.file("fresh.txt"), ""));
    EXPECT_EQ(Entries(), (std::vector<std::string>{"first.txt", "fresh.txt", "link.txt",
                                                   "second.txt", "target.txt"}));
}

TEST_F(SafeSaveTest, PathsThatCannotBeWrittenFailWithAReason) {
    std::string notAFolder = dir.write("plain", kOld), locked = dir.write("locked.txt", kOld);
    ::chmod(locked.c_str(), 0444);
    fs::create_directory(dir.file("folder"));
    std::vector<std::string> paths = {dir.file("folder"), notAFolder + "/x.txt",
                                      dir.file("missing/x.txt"), std::string()};
    // Permissions do not hold back the superuser; the refusal shows for anyone else.
    if (::geteuid() != 0) paths.push_back(locked);
    for (const std::string& path : paths) {
        QString error;
        EXPECT_FALSE(Save(path, "new", &error)) << path;
        EXPECT_FALSE(error.isEmpty()) << path;
    }
    EXPECT_TRUE(fs::is_directory(dir.file("folder")));
    EXPECT_EQ(ReadFileBytes(notAFolder), kOld);
    EXPECT_EQ(ReadFileBytes(locked), kOld);
}

// A full disk fails the save and leaves the old file, whether the new contents went to a new
// file beside it or, where the folder takes no new files, over it in place and were taken back.
TEST_F(SafeSaveTest, AFullDiskLeavesTheOldFileAndNoTemporaryFile) {
    for (bool inPlace : {false, true}) {
        SetTemporaryFilesRefusedForTesting(inPlace);
        std::string target = dir.write("keep.txt", kOld);
        QString error;
        {
            FileSizeLimit full(4096);
            EXPECT_FALSE(Save(target, kLarge, &error)) << inPlace;
        }
        EXPECT_FALSE(error.isEmpty()) << inPlace;
        EXPECT_FALSE(error.contains("put back")) << error.toStdString();
        EXPECT_EQ(ReadFileBytes(target), kOld) << inPlace;
        EXPECT_EQ(Entries(), std::vector<std::string>{"keep.txt"}) << inPlace;
    }
}

// Where no new file may be made beside the old one, the old one is written in place.
TEST_F(SafeSaveTest, AFolderWithoutRoomForNewFilesIsWrittenInPlace) {
    SetTemporaryFilesRefusedForTesting(true);
    std::string target = dir.write("keep.txt", kOld);
    for (const std::string& bytes : {std::string("longer than the old contents, by quite a bit"),
                                     std::string("short"), std::string()}) {
        ASSERT_TRUE(Save(target, bytes));
        EXPECT_EQ(ReadFileBytes(target), bytes);
    }
    QString error;
    EXPECT_FALSE(Save(dir.file("new.txt"), "x", &error)); // a new file needs the folder
    EXPECT_EQ(error, "Permission denied");
    EXPECT_EQ(Entries(), std::vector<std::string>{"keep.txt"});
}

// The control's rich text follows the document's encoding, both written and read. Saving it as
// a file is the export command's test.
TEST_F(SafeSaveTest, TheControlsRichTextFollowsItsDocumentsEncoding) {
    RichEdit edit;
    struct Case {
        bool utf8;
        std::string text, escaped, read;
    };
    for (const Case& c : {Case{true, "caf\xC3\xA9", "caf\\u233?", "caf\xC3\xA9 \xE2\x82\xAC"},
                          Case{false, "caf\xE9", "caf\\'e9", "caf\xE9 \x80"}}) {
        edit.ResetEncoding(c.utf8);
        edit.SetText(c.text);
        EXPECT_NE(edit.TextRTF().find(c.escaped), std::string::npos) << c.utf8;
        edit.SetTextRTF("{\\rtf1 caf\\'e9 \\u8364?}");
        EXPECT_EQ(edit.Text(), c.read) << c.utf8;
    }
}
