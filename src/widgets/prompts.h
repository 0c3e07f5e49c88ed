#pragma once
// Every message box of the program goes through Prompts, so that tests can
// answer them from a script.

#include <QString>

class QWidget;

namespace marl {

// "Marl - Marlstone": the title of every message without one of its own.
QString appTitle();
// "0.3.1": major, minor and revision of this program.
QString appVersion();
// The lines of a two-line message, joined by CR LF.
QString twoLines(const QString& first, const QString& second);

class Prompts {
public:
    virtual ~Prompts() = default;
    // A question with Yes and No; true for Yes.
    virtual bool ask(const QString& text, const QString& title = appTitle()) = 0;
    // A message with one OK button.
    virtual void tell(const QString& text, const QString& title = appTitle()) = 0;
};

// A window whose messages go through a Prompts of its own (the editors and
// their dialogs): a field inside it tells the builder through them.
class PromptsWindow {
public:
    virtual ~PromptsWindow() = default;
    virtual Prompts& windowPrompts() = 0;
};

// Tells `text` through the prompts of the window `widget` is in, when that
// window has its own.
void tellInWindow(QWidget* widget, const QString& text);

// The platform's message boxes, over the window that is active.
class MessageBoxPrompts : public Prompts {
public:
    bool ask(const QString& text, const QString& title = appTitle()) override;
    void tell(const QString& text, const QString& title = appTitle()) override;
};

} // namespace marl
