#pragma once
// A fresh program for each test: its own settings folder and program folder, a main window
// through its load step, and scripted dialogs.
#include "app/frmMain.h"
#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "editor/DocumentArray.h"
#include "editor/frmDocument.h"
#include "profiles/frmConfigAssocProfile.h"
#include "search/DocumentSearch.h"
#include "support/ScriptedDialogs.h"
#include "support/TempDir.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

class AppFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        SetStoreDirectoryForTesting(tmp.path() + "config");
        SetAppDirForTesting(QString::fromStdString(tmp.path() + "app"));
        // The program folder holds the shipped profiles, as beside the real executable.
        std::filesystem::create_directories(tmp.path() + "app");
        if (const char* build = std::getenv("KESTRUM_BUILD_DIR"))
            std::filesystem::copy(std::string(build) + "/PROFILES", tmp.path() + "app/PROFILES",
                                  std::filesystem::copy_options::recursive);
        AppTitle() = "Kestrum";
        g_EditorSettings() = EditorSettings::Defaults();
        // Help pages are never shown in a browser from a test.
        SetHelpOpenerForTesting([](const QString&) { return true; });
    }
    void TearDown() override {
        // The seams a test may have scripted.
        SetModalRunnerForTesting(nullptr);
        SetSearchDialogRunnerForTesting(nullptr);
        if (main) {
            // Close without questions: nothing of a test may wait for a dialog.
            for (frmDocument* d : Documents().OpenDocuments()) d->Changed = false;
            main->close();
            main.reset();
        }
        QApplication::processEvents();
        EXPECT_EQ(dialogs.Pending(), 0u) << "scripted answers left over";
    }
    // Runs the main window's load step with the command line, and lets activation happen.
    frmMain& Start(const QString& commandLine = {}) {
        main = std::make_unique<frmMain>();
        main->MDIForm_Load(commandLine);
        main->show();
        Settle();
        return *main;
    }
    static void Settle() {
        for (int i = 0; i < 3; ++i) QApplication::processEvents();
    }
    QString Path(const std::string& name) const { return QString::fromStdString(tmp.file(name)); }
    // A saved document holding text, opened as the user opens one, and active.
    frmDocument* OpenFile(const std::string& name, std::string_view text) {
        tmp.write(name, text);
        QString error;
        frmDocument* d = main->OpenFileInNewDocument(Path(name), {}, false, &error);
        EXPECT_NE(d, nullptr) << error.toStdString();
        Settle();
        return d;
    }
    QString Setting(const QString& key, const QString& section = "Settings") {
        return GetSetting("Kestrum", section, key, "<none>");
    }

    TempDir tmp;
    ScriptedDialogs dialogs;
    std::unique_ptr<frmMain> main;
};
