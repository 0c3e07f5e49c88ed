#include "about/form_about.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "about/app_icon.h"
#include "widgets/prompts.h"

namespace marl {

namespace {

// Who makes Marl and where to find them.
struct Contact {
    const char* frameName;
    const char* title;
    const char* nameLabel;
    const char* name;
    const char* mailLabel;
    const char* mail;
    const char* webLabel;
    const char* web;
};

const Contact kAuthor = {"frameAboutInfo", "Program and Author Info",
                         "labelAuthor",    "The Marl maintainers",
                         "labelEMail",     "maintainers@marl-editor.org",
                         "labelWebSite",   "https://marl-editor.org/about"};
const Contact kCompany = {"formCompanyInfo",     "Company Info",           "labelCompanyName",
                          "The Marl Project",    "labelCompanyEMail",      "info@marl-editor.org",
                          "labelCompanyWebSite", "https://marl-editor.org"};

// An address shown as a link: link colour, underlined, a pointing hand over
// it.  A click (or Space or Enter once it has the focus) hands the address
// to the desktop, which opens the mail program or the browser.
class LinkLabel : public QLabel {
public:
    LinkLabel(const QString& text, QUrl url, QWidget* parent)
        : QLabel(text, parent), url_(std::move(url)) {
        setCursor(Qt::PointingHandCursor);
        setFocusPolicy(Qt::TabFocus);
        setToolTip(url_.toString());
        // Only the text is the link, not the empty space beside it.
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        QFont underlined = font();
        underlined.setUnderline(true);
        setFont(underlined);
        QPalette linkColour = palette();
        linkColour.setColor(QPalette::WindowText, linkColour.color(QPalette::Link));
        setPalette(linkColour);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton)
            event->accept();
        else
            QLabel::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            open();
        else
            QLabel::mouseReleaseEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            open();
            break;
        default:
            QLabel::keyPressEvent(event);
        }
    }
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasFocus())
            return;
        QStylePainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
    }

private:
    void open() { QDesktopServices::openUrl(url_); }

    QUrl url_;
};

QLabel* plainLabel(const char* name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

QLabel* linkLabel(const char* name, const QString& text, const QUrl& url, QWidget* parent) {
    auto* label = new LinkLabel(text, url, parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

QGroupBox* contactFrame(const Contact& contact, QWidget* parent) {
    auto* frame = new QGroupBox(QString::fromLatin1(contact.title), parent);
    frame->setObjectName(QString::fromLatin1(contact.frameName));
    auto* lines = new QVBoxLayout(frame);
    const QString mail = QString::fromLatin1(contact.mail);
    const QString web = QString::fromLatin1(contact.web);
    lines->addWidget(plainLabel(contact.nameLabel, QString::fromLatin1(contact.name), frame));
    lines->addWidget(
        linkLabel(contact.mailLabel, mail, QUrl(QStringLiteral("mailto:") + mail), frame), 0,
        Qt::AlignLeft);
    lines->addWidget(linkLabel(contact.webLabel, web, QUrl::fromUserInput(web), frame), 0,
                     Qt::AlignLeft);
    lines->addStretch();
    return frame;
}

} // namespace

QString versionText() {
    return QStringLiteral("Version ") + appVersion();
}

FormAbout::FormAbout(Prompts& prompts, ProgramLauncher& launcher)
    : QDialog(nullptr), prompts_(prompts), launcher_(launcher) {
    setObjectName(QStringLiteral("formAbout"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("About ") + appTitle());
    // A box of fixed size: a close button, nothing to minimise or maximise.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);

    auto* picApp = new QLabel(this);
    picApp->setObjectName(QStringLiteral("picApp"));
    picApp->setPixmap(appPicture(48, devicePixelRatioF()));

    auto* appInfo = new QGroupBox(QStringLiteral("Application Info"), this);
    appInfo->setObjectName(QStringLiteral("formAppInfo"));
    QLabel* appName = plainLabel("labelAppName", appTitle(), appInfo);
    QFont titleFont = appName->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    appName->setFont(titleFont);
    auto* appLines = new QVBoxLayout(appInfo);
    appLines->addWidget(appName);
    appLines->addWidget(plainLabel("labelAppVersion", versionText(), appInfo));
    appLines->addWidget(plainLabel(
        "labelDesc", QStringLiteral("An editor and creator of CircleMUD world files."), appInfo));

    auto* top = new QHBoxLayout;
    top->addWidget(picApp, 0, Qt::AlignTop);
    top->addWidget(appInfo, 1);

    // The two contact frames side by side, equally wide.
    QGroupBox* author = contactFrame(kAuthor, this);
    QGroupBox* company = contactFrame(kCompany, this);
    const int contactWidth = std::max(author->sizeHint().width(), company->sizeHint().width());
    author->setMinimumWidth(contactWidth);
    company->setMinimumWidth(contactWidth);
    auto* contacts = new QHBoxLayout;
    contacts->addWidget(author);
    contacts->addWidget(company);

    auto* ok = new QPushButton(QStringLiteral("&Ok"), this);
    ok->setObjectName(QStringLiteral("buttonOk"));
    ok->setDefault(true);
    auto* sysInfo = new QPushButton(QStringLiteral("&System Info..."), this);
    sysInfo->setObjectName(QStringLiteral("buttonSysInfo"));
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(sysInfo, QDialogButtonBox::ActionRole);
    connect(ok, &QPushButton::clicked, this, &QWidget::close);
    connect(sysInfo, &QPushButton::clicked, this, &FormAbout::StartSysInfo);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(contacts);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus();
}

void FormAbout::StartSysInfo() {
    marl::StartSysInfo(launcher_, prompts_);
}

} // namespace marl
