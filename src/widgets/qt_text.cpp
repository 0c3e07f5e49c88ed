#include "widgets/qt_text.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextCursor>

#include "widgets/prompts.h"
#include "world/numeric_rule.h"
#include "world/server_limits.h"

namespace marl {

QString fromBytes(const std::string& bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string toBytes(const QString& text) {
    const QByteArray latin1 = text.toLatin1();
    return std::string(latin1.constData(), static_cast<std::size_t>(latin1.size()));
}

QString toWidgetText(const std::string& bytes) {
    QString text = fromBytes(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

std::string fromWidgetText(const QString& text) {
    QString copy = text;
    copy.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    copy.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return toBytes(copy);
}

QFont fixedFont() {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

NumericValidator::NumericValidator(bool allowMinus, QObject* parent)
    : QValidator(parent), allowMinus_(allowMinus) {}

QValidator::State NumericValidator::validate(QString& input, int&) const {
    for (QChar c : input)
        if (c.unicode() > 0x7f || !numericKeyAllowed(static_cast<char>(c.unicode()), allowMinus_))
            return Invalid;
    return Acceptable;
}

bool isTildeSafe(const QString& text) {
    for (QChar c : text)
        if (c == QLatin1Char('~') || c.unicode() > 0xff)
            return false;
    return true;
}

bool fitsServer(const QString& widgetText) {
    return fitsServerText(fromWidgetText(widgetText), TextForm::Text, LineEnd::CrLf);
}

bool refuseTooLong(QWidget* field, qsizetype before, const QString& after) {
    if (after.size() <= before || fitsServer(after))
        return false;
    // A one-line field's filter also sees a text the program shows: one the
    // server would refuse is shown all the same, and told of.
    tellInWindow(field, fromBytes(textTooLongMessage()));
    return true;
}

TildeTextValidator::TildeTextValidator(QLineEdit* parent) : QValidator(parent) {
    // Called with the text after an edit; the text before it is the one the
    // field last showed.
    connect(parent, &QLineEdit::textChanged, this,
            [this](const QString& text) { shown_ = text.size(); });
}

QValidator::State TildeTextValidator::validate(QString& input, int&) const {
    if (!isTildeSafe(input))
        return Invalid;
    auto* field = static_cast<QWidget*>(parent());
    return refuseTooLong(field, shown_, input) ? Invalid : Acceptable;
}

void guardTildeText(QLineEdit* edit) {
    edit->setValidator(new TildeTextValidator(edit));
}

TildeTextEdit::TildeTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(fixedFont());
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setTabChangesFocus(true);
}

bool TildeTextEdit::mayInsert(const QString& inserted) {
    const QString before = toPlainText();
    const QTextCursor cursor = textCursor();
    QString after = before;
    after.replace(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart(),
                  inserted);
    return !refuseTooLong(this, before.size(), after);
}

void TildeTextEdit::keyPressEvent(QKeyEvent* event) {
    if (!event->text().isEmpty() && !isTildeSafe(event->text())) {
        event->accept(); // dropped, as a numeric field drops a letter
        return;
    }
    const bool newLine = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString typed = newLine ? QStringLiteral("\n") : event->text();
    if ((newLine || (!typed.isEmpty() && typed.front().isPrint())) && !mayInsert(typed)) {
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void TildeTextEdit::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText())
        return;
    QString text;
    for (QChar c : source->text())
        if (c != QLatin1Char('~') && c.unicode() <= 0xff)
            text += c;
    if (mayInsert(text))
        insertPlainText(text);
}

} // namespace marl
