#pragma once
// Between the files' single-byte text and the widgets: every byte survives
// as one Latin-1 character, and multi-line texts hold CR LF in memory while
// a text widget shows `\n`.

#include <QFont>
#include <QPlainTextEdit>
#include <QString>
#include <QValidator>
#include <string>

class QLineEdit;

namespace marl {

QString fromBytes(const std::string& bytes);
std::string toBytes(const QString& text);

// A multi-line text for a widget (CR LF to `\n`) and back (`\n` to CR LF).
QString toWidgetText(const std::string& bytes);
std::string fromWidgetText(const QString& text);

// "Courier New", falling back to the system's fixed-pitch font.
QFont fixedFont();

// The key filter of numeric fields: digits, and `-` where negatives are
// allowed.  Pasted text is filtered the same way.
class NumericValidator : public QValidator {
public:
    NumericValidator(bool allowMinus, QObject* parent);
    State validate(QString& input, int& pos) const override;

private:
    bool allowMinus_;
};

// The filter of texts the file holds as tilde strings: a `~` would end the
// text early and a character outside the single-byte set cannot be written,
// so neither can be typed or pasted.
// It also refuses an edit that makes the text longer than the server reads
// (fitsServer) and tells the builder so; a longer text the program shows
// (from a file the server refuses) is shown and told of, and shortening it
// is never refused.
class TildeTextValidator : public QValidator {
public:
    explicit TildeTextValidator(QLineEdit* parent);
    State validate(QString& input, int& pos) const override;

private:
    qsizetype shown_ = 0; // the length of the text the field last showed
};

// Whether a text, as a widget shows it, fits what the server reads of a text
// however it is written: in CR LF line ends, a line break before its `~`.
bool fitsServer(const QString& widgetText);
// Refuses an edit that makes the text longer than `before` characters and
// too long for the server as `after`, telling the builder through `field`'s
// window.
bool refuseTooLong(QWidget* field, qsizetype before, const QString& after);

// Whether a text can be held in a tilde string (no `~`, single-byte only).
bool isTildeSafe(const QString& text);

// Keeps `~` and characters outside Latin-1 out of a one-line text field.
void guardTildeText(QLineEdit* edit);

// A multi-line text field of the fixed-pitch font with a vertical scroll bar
// that refuses `~` and characters outside Latin-1, typed, pasted or dropped.
class TildeTextEdit : public QPlainTextEdit {
public:
    explicit TildeTextEdit(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    // False, and the builder told, when `inserted` in place of the selection
    // would make the text too long for the server.
    bool mayInsert(const QString& inserted);
};

} // namespace marl
