#include "widgets/qt_text.h"

#include <QLineEdit>
#include <QKeyEvent>
#include <QMimeData>

#include "world/numeric_rule.h"

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

QValidator::State TildeTextValidator::validate(QString& input, int&) const {
    return isTildeSafe(input) ? Acceptable : Invalid;
}

void guardTildeText(QLineEdit* edit) {
    edit->setValidator(new TildeTextValidator(edit));
}

TildeTextEdit::TildeTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(fixedFont());
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setTabChangesFocus(true);
}

void TildeTextEdit::keyPressEvent(QKeyEvent* event) {
    if (!event->text().isEmpty() && !isTildeSafe(event->text())) {
        event->accept();  // dropped, as a numeric field drops a letter
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
    insertPlainText(text);
}

} // namespace marl
