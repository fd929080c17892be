#include "filetools/FileToolsDoCommands.h"

#include "base/qt/AppGlobals.h"
#include "filetools/frmCompareFiles.h"
#include "filetools/frmComparison.h"

#include <QCheckBox>
#include <QLineEdit>
#include <ostream>

namespace {

// compare [--case-sensitive] [--show-different] [--ignore-blanks] FILE2 FILE
// FILE is the first file of the comparison. A file that can't be read is an empty side, as in
// the dialog, so it is no usage error; the frame opens no document for this row.
void Compare(DoRun& run) {
    DoOptions o(run.args, {"--case-sensitive", "--show-different", "--ignore-blanks"});
    const std::vector<std::string>& files = o.Positional(2);
    frmCompareFiles dialog;
    dialog.txtFirstFile->setText(FromBytes(files[1]));
    dialog.txtSecondFile->setText(FromBytes(files[0]));
    dialog.chkCaseSensitive->setChecked(o.Has("--case-sensitive"));
    dialog.chkShowDifferent->setChecked(o.Has("--show-different"));
    dialog.chkIgnoreBlanks->setChecked(o.Has("--ignore-blanks"));
    dialog.chkOpenFiles->setChecked(false);
    frmComparison* results = dialog.cmdOK_Click();

    // One line per row of lvDifferences: PAIR ICON LEN1 LEN2 TEXT1 TEXT2, the texts as the
    // bytes the row spans in the files.
    const ComparisonModel& model = *results->model;
    const ComparisonResult* result = model.Result();
    std::ostream& out = *run.out;
    for (int r = 0; result && r < model.rowCount(); ++r) {
        const ComparisonRow& row = result->rows[size_t(r)];
        const std::string_view t1 = result->Text1(row), t2 = result->Text2(row);
        out << model.index(r, 0).data().toString().toStdString() << ' '
            << ComparisonResult::Icon(row) << ' ' << t1.size() << ' ' << t2.size() << ' ';
        out.write(t1.data(), std::streamsize(t1.size())) << ' ';
        out.write(t2.data(), std::streamsize(t2.size())) << '\n';
    }
    delete results;
}

} // namespace

std::vector<DoCommand> FileToolsDoCommands() {
    return {{"compare", false, &Compare}};
}
