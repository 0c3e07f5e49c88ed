#include "widgets/prompts.h"

#include <QWidget>

#include <QApplication>
#include <QMessageBox>

namespace marl {

QString appTitle() {
    return QStringLiteral("Marl - Marlstone");
}

QString appVersion() {
    return QStringLiteral("%1.%2.%3")
        .arg(MARL_VERSION_MAJOR)
        .arg(MARL_VERSION_MINOR)
        .arg(MARL_VERSION_PATCH);
}

QString twoLines(const QString& first, const QString& second) {
    return first + QStringLiteral("\r\n") + second;
}

namespace {

QString shown(const QString& text) {
    QString copy = text;
    return copy.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

bool MessageBoxPrompts::ask(const QString& text, const QString& title) {
    return QMessageBox::question(QApplication::activeWindow(), title, shown(text),
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

void MessageBoxPrompts::tell(const QString& text, const QString& title) {
    QMessageBox::information(QApplication::activeWindow(), title, shown(text), QMessageBox::Ok);
}

void tellInWindow(QWidget* widget, const QString& text) {
    if (auto* window = dynamic_cast<PromptsWindow*>(widget->window()))
        window->windowPrompts().tell(text);
}

} // namespace marl
