#pragma once
// Opens the help on a topic: a generated frameset page in the Help folder, shown by the
// desktop's browser.
#include <QString>
#include <functional>

void ShowHelpTopic(const QString& topic);
// Tests replace the browser.
// The opener returns false when no program could show the page.
void SetHelpOpenerForTesting(std::function<bool(const QString& path)> opener);
