// The association dialog writing into a temporary XDG_DATA_HOME and XDG_CONFIG_HOME, read
// back from the files. PATH holds no desktop tools, so every file is this program's writing.
#include "base/qt/AppGlobals.h"
#include "filetools/cRegistry.h"
#include "filetools/frmAssociateFiles.h"
#include "profiles/core/SyntaxAssociations.h"
#include "support/ScriptedDialogs.h"
#include "support/TempDir.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace {

class AssociateFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        validator_ = QStandardPaths::findExecutable("desktop-file-validate");
        oldPath_ = qgetenv("PATH");
        qputenv("PATH", QByteArray::fromStdString(tmp.path() + "bin"));
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(tmp.path() + "data"));
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(tmp.path() + "config"));
        SetStoreDirectoryForTesting(tmp.path() + "store");
        AppTitle() = "Kestrum";
        for (const char* ext : {"C", "exe ", "PAS", "COM", "a b"})
            Store().SaveSetting("Kestrum", kSyntaxAssocSection, ext, "C and C++ Default Profile");
    }
    void TearDown() override {
        qputenv("PATH", oldPath_);
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_CONFIG_HOME");
        EXPECT_EQ(dialogs.Pending(), 0u);
    }
    // Runs the dialog's OK with the extensions selected.
    void Associate(const QStringList& extensions) {
        frmAssociateFiles dlg;
        for (int i = 0; i < dlg.lstExtensions->count(); ++i)
            dlg.lstExtensions->item(i)->setSelected(
                extensions.contains(dlg.lstExtensions->item(i)->text()));
        dlg.cmdOK_Click();
    }
    std::string Entry() const {
        return ReadFileBytes(tmp.path() + "data/applications/Kestrum.Document.desktop");
    }
    std::string MimeApps() const { return ReadFileBytes(tmp.path() + "config/mimeapps.list"); }
    // The last message asked, by its caption.
    QString LastMessage() const {
        return dialogs.asked.empty() ? QString() : dialogs.asked.back().text;
    }

    TempDir tmp;
    ScriptedDialogs dialogs;
    QByteArray oldPath_;
    QString validator_;
};

// Known types take the desktop's name, unknown ones get a package of their own; a later run
// adds to what the first one wrote, and the user's other defaults stay.
TEST_F(AssociateFiles, WrittenAndReadBack) {
    tmp.write("config/mimeapps.list", "[Default Applications]\ntext/html=browser.desktop\n");
    dialogs.AnswerMsgBox(MsgResult::OK).AnswerMsgBox(MsgResult::OK);
    Associate({"C", "KWS"});
    ASSERT_EQ(dialogs.asked.size(), 2u);
    EXPECT_EQ(dialogs.asked[0].caption, "Warning:");
    EXPECT_TRUE(LastMessage().contains("update-mime-database was not found"))
        << LastMessage().toStdString();

    EXPECT_TRUE(FileExists(tmp.path() + "data/mime/packages/kestrum-kws.xml"));
    EXPECT_FALSE(FileExists(tmp.path() + "data/mime/packages/kestrum-c.xml"));
    const std::string program = QCoreApplication::applicationDirPath().toStdString() + "/kestrum";
    EXPECT_NE(Entry().find("\nExec=" + program + " %f\n"), std::string::npos) << Entry();
    EXPECT_NE(Entry().find("\nMimeType=text/x-csrc;text/x-kestrum-kws;\n"), std::string::npos);
    for (const char* line :
         {"text/html=browser.desktop\n", "text/x-csrc=Kestrum.Document.desktop\n",
          "text/x-kestrum-kws=Kestrum.Document.desktop\n"})
        EXPECT_NE(MimeApps().find(line), std::string::npos) << line;

    dialogs.AnswerMsgBox(MsgResult::OK);
    Associate({"PAS"});
    EXPECT_NE(Entry().find("\nMimeType=text/x-csrc;text/x-kestrum-kws;text/x-pascal;\n"),
              std::string::npos)
        << Entry();

    if (!validator_.isEmpty()) {
        QProcess v;
        v.start(validator_, {QString::fromStdString(tmp.path() +
                                                    "data/applications/Kestrum.Document.desktop")});
        ASSERT_TRUE(v.waitForFinished(30000));
        EXPECT_EQ(v.exitCode(), 0) << v.readAllStandardOutput().toStdString();
    }
}

// Each failure shows its message; a file that was there stays as it was, and nothing is
// half written.
TEST_F(AssociateFiles, FailuresLeaveFilesWhole) {
    const std::string binary("[Default Applications]\n\0\xff", 26),
        text = "[Default Applications]\n";
    using M = MsgResult;
    const struct {
        const char* name;
        QStringList selected;
        std::string mimeApps; // "" for none
        bool readOnly;
        MsgResult warning;
        const char* message; // part of the message after the warning; null for none
    } cases[] = {
        {"read-only mimeapps.list", {"C"}, text, true, M::OK, "write-protected"},
        {"mimeapps.list not text", {"C"}, binary, false, M::OK, "not a text file"},
        {"extension with a blank", {"a b"}, "", false, M::OK, "'a b' cannot be associated"},
        {"cancelled", {"C"}, "", false, M::Cancel, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove_all(tmp.path() + "data");
        std::filesystem::remove_all(tmp.path() + "config");
        if (!c.mimeApps.empty()) tmp.write("config/mimeapps.list", c.mimeApps);
        if (c.readOnly) ::chmod(tmp.file("config/mimeapps.list").c_str(), 0444);
        dialogs.asked.clear();
        dialogs.AnswerMsgBox(c.warning);
        if (c.message) dialogs.AnswerMsgBox(MsgResult::OK);
        Associate(c.selected);
        ASSERT_EQ(dialogs.asked.size(), c.message ? 2u : 1u);
        if (c.message) {
            EXPECT_TRUE(LastMessage().contains(c.message)) << LastMessage().toStdString();
        }
        EXPECT_EQ(MimeApps(), c.mimeApps); // as it was, or still missing
        if (c.mimeApps.empty()) {
            EXPECT_EQ(Entry(), "");
        }
        // No temporary file of a write stays behind.
        if (std::filesystem::exists(tmp.path() + "config")) {
            for (auto& e : std::filesystem::directory_iterator(tmp.path() + "config"))
                EXPECT_EQ(e.path().filename().string(), "mimeapps.list");
        }
        if (c.readOnly) ::chmod(tmp.file("config/mimeapps.list").c_str(), 0644);
    }
}

TEST_F(AssociateFiles, FurtherVerbsNeedADefinedClassAndWholeTriples) {
    cRegistry reg;
    auto error = [&](const QStringList& items) {
        try {
            reg.CreateAdditionalEXEAssociations("Kestrum.Document", items);
        } catch (const cRegistryError& e) {
            return e.Number();
        }
        return 0L;
    };
    EXPECT_EQ(error({"print", "&Print"}), kRegistryBadVerbList);
    EXPECT_EQ(error({"print", "&Print", "x"}), kRegistryNoClass);
    reg.CreateEXEAssociation("/opt/k/kestrum", "Kestrum.Document", "Source Code", "C", "", true, "",
                             false, "", false, "", -1);
    reg.CreateAdditionalEXEAssociations(
        "Kestrum.Document", {"print", "Print &Now", "k /p %f", "edit", "&Edit", "k %f"});
    EXPECT_NE(Entry().find("\nActions=print;edit;\n"), std::string::npos) << Entry();
    EXPECT_NE(Entry().find("\nName=Print Now\nExec=k /p %f\n"), std::string::npos) << Entry();
    EXPECT_EQ(Entry().find("Icon="), std::string::npos);
    EXPECT_NE(Entry().find("\nName=Open in Kestrum\n"), std::string::npos);
}

} // namespace
