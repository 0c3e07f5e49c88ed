#pragma once
// Access keys for captions that must read exactly as they stand.  A button's
// text() stays "Save", so the caption a builder sees and a tool reads is the
// system's own; the button draws it as "&Save" (S underlined where the style
// underlines access keys) and Alt+S presses it, as a `&` in the text would.

#include <QCheckBox>
#include <QKeySequence>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace marl::ui {

// `caption` with `&` before its first `key` (either case) and every `&` of
// its own doubled; without `key` in it, the caption as it stands.
inline QString mnemonicCaption(const QString& caption, QChar key) {
    QString drawn = caption;
    drawn.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const qsizetype at = key.isNull() ? -1 : drawn.indexOf(key, 0, Qt::CaseInsensitive);
    if (at >= 0)
        drawn.insert(at, QLatin1Char('&'));
    return drawn;
}

// A button, check box or option whose access key is `key` (0 for none).
// Only the drawing and the shortcut change; text() and sizeHint() are those
// of the plain caption.
template <typename Button, QStyle::ControlElement Element> class AccessKeyed : public Button {
public:
    AccessKeyed(const QString& caption, QChar key, QWidget* parent)
        : Button(caption, parent), key_(key) {
        // Where the platform has no access keys (macOS) the sequence is empty.
        this->setShortcut(QKeySequence::mnemonic(mnemonicCaption(caption, key)));
    }
    QChar accessKey() const { return key_; }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        this->initStyleOption(&option);
        option.text = mnemonicCaption(option.text, key_);
        painter.drawControl(Element, option);
    }

private:
    QChar key_;
};

using AccessButton = AccessKeyed<QPushButton, QStyle::CE_PushButton>;
using AccessCheckBox = AccessKeyed<QCheckBox, QStyle::CE_CheckBox>;
using AccessRadioButton = AccessKeyed<QRadioButton, QStyle::CE_RadioButton>;

} // namespace marl::ui
