#pragma once
// Opens the help on a topic: a generated frameset page in the Help folder, shown by the
// desktop's browser.
#include <QString>
#include <functional>

void ShowHelpTopic(const QString& topic);
// Tests replace the browser.
void SetHelpOpenerForTesting(std::function<void(const QString& path)> opener);
