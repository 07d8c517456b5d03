#pragma once

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace zlt {

/// Says when a text that grows character by character is to be painted: each one of a slow
/// line, and as often as a screen shows of a fast one, which painting must not hold up.
class PaintPace {
 public:
    bool due() {
        constexpr qint64 frameMs = 15;
        if (m_sincePainted.isValid() && !m_sincePainted.hasExpired(frameMs))
            return false;
        m_sincePainted.start();
        return true;
    }

 private:
    QElapsedTimer m_sincePainted;
};

/// The growing transcript of a terminal, to be read, selected and copied. Its text is kept
/// beside the widget, which would turn some characters into others.
class Transcript : public QPlainTextEdit {
    Q_OBJECT

 public:
    explicit Transcript(QWidget* parent = nullptr);

    /// Adds a piece at the end (Latin-1). A line is painted at once: what follows blocks; single
    /// characters as they come in.
    void write(std::string_view text);

    /// Puts the caret on the last line, its end selected.
    void placeCaret();
    /// Scrolls by so many pages; up is negative.
    void scrollPages(int pages);

    /// The whole transcript, Latin-1, with CR LF after each line.
    [[nodiscard]] const std::string& text() const { return m_text; }

 signals:
    void clicked();  ///< and nothing was selected by it

 protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;

 private:
    void showPending();

    std::string m_text;
    std::string m_pending;  ///< the part of it that the widget does not show yet
    PaintPace m_pace;
};

}  // namespace zlt
