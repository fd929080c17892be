#pragma once
// A started program whose tool runs are recorded instead of started, and a way to act on the
// modal dialog a command is about to show.
#include "support/AppTest.h"
#include "tools/ToolRunner.h"

#include <QDialog>
#include <QTimer>
#include <functional>

struct Started {
    ProcessLine line;
    QString dir;
};

struct ToolsFixture : FileCommandsFixture {
    void SetUp() override {
        FileCommandsFixture::SetUp();
        ToolRunner::SetStarterForTesting([this](const ProcessLine& p, const QString& dir) {
            started.push_back({p, dir});
        });
        SaveSetting("Kestrum", "Settings", "Terminal", "term");
    }
    void TearDown() override {
        ToolRunner::SetStarterForTesting(nullptr);
        FileCommandsFixture::TearDown();
    }
    // Runs f on the modal dialog named name as soon as it shows.
    static void OnModal(const QString& name, std::function<void(QDialog*)> f) {
        auto* t = new QTimer;
        t->setInterval(5);
        QObject::connect(t, &QTimer::timeout, [t, name, f] {
            auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!d || d->objectName() != name) return;
            t->stop();
            t->deleteLater();
            f(d);
        });
        t->start();
    }
    // What a started console runs: the command line handed to the shell.
    static std::string Line(const Started& s) {
        return s.line.program == "sh" ? s.line.args.at(1) : s.line.args.at(5);
    }
    static std::string Form(const Started& s) {
        if (s.line.program == "sh") return "bare";
        bool keep = s.line.args.at(3).find("read _") != std::string::npos;
        bool capture = s.line.args.at(3).find("Tool finished") != std::string::npos;
        return std::string(keep ? "keep" : "close") + (capture ? "+capture" : "");
    }

    std::vector<Started> started;
};
