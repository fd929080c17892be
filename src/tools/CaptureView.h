#pragma once
// A read-only view of a tool's captured output. It keeps only where each line begins and reads
// the lines it draws back from the capture file, so an output of any size costs the editor
// neither a copy of the text nor a buffer that has to grow with it. Lines that name a file
// location are underlined; a double click on a line is reported.
#include "tools/core/LineIndex.h"

#include <QAbstractScrollArea>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CaptureView : public QAbstractScrollArea {
    Q_OBJECT
  public:
    // Only this much of a line is drawn, searched for a location and hit by the mouse: a tool
    // may print one endless line.
    static constexpr std::size_t kLineHead = 4096;
    // The space left of a line's first character.
    static constexpr int kIndent = 3;

    explicit CaptureView(QWidget* parent = nullptr);
    ~CaptureView() override;

    // Shows text held here (a message) in place of anything shown before.
    void SetText(std::string bytes);
    // Shows the file at path from its beginning; its bytes come in through Append.
    void ShowFile(std::string path);
    // The next bytes of what is shown, as read. Of a file, only the line starts are kept.
    void Append(std::string_view bytes);

    int lines() const;
    QString Text() const;
    // The first kLineHead bytes of a line, its line end left out.
    std::string LineHead(int line) const;
    // Whether the line names a file location; a line still without its end never does.
    bool IsLink(int line) const;
    // Where the line is drawn, in the viewport's coordinates.
    QRect LineRect(int line) const;

    // Selection between two byte offsets of the text, in either order.
    void SetSelection(std::uint64_t anchor, std::uint64_t caret);
    QString SelectedText() const;
    void copy() const;
    void selectAll();

  signals:
    void LineDoubleClicked(int line);

  protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;

  private:
    // A line as drawn: one cell of the fixed-width grid per character, and for each cell the
    // offset in the line of the byte it comes from (one more entry for the end).
    struct Cells {
        QString text;
        std::vector<int> byteOf;
    };
    static Cells Decode(std::string_view head, bool cut);
    // The bytes [from, to) of the text, as far as they are there.
    std::string Read(std::uint64_t from, std::uint64_t to) const;
    std::vector<std::string> Heads(int first, int last) const;
    bool Ended(int line) const;
    std::uint64_t PosAt(QPoint p) const;
    int LineAtY(int y) const;
    void UpdateRanges();
    int lineHeight() const;
    int cellWidth() const;

    LineIndex index_;
    std::string path_; // empty: the text is text_
    std::string text_;
    std::uint64_t anchor_ = 0, caret_ = 0;
};
