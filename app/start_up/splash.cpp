#include "app/start_up/splash.h"

#include "resources/texts.h"
#include "view/controls/theme.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace quillon::app {

namespace {

constexpr QSize Size(420, 240);
constexpr int IconSize = 96;

QLabel *label(const QString &text, int points, controls::Colour colour, QWidget *parent) {
    auto *made = new QLabel(text, parent);
    QFont font = made->font();
    font.setPointSize(points);
    made->setFont(font);
    QPalette palette = made->palette();
    palette.setColor(QPalette::WindowText, controls::theme().colour(colour));
    made->setPalette(palette);
    made->setAlignment(Qt::AlignCenter);
    return made;
}

} // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen) {
    setFixedSize(Size);
    const QString title = resources::texts::ApplicationTitle.toString();
    setWindowTitle(title);
    setAccessibleName(title);

    auto *picture = new QLabel(this);
    picture->setPixmap(QIcon(QStringLiteral(":/icons/quillon.svg"))
                           .pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
    picture->setAlignment(Qt::AlignCenter);
    lblVersion = label(QStringLiteral("Version " QUILLON_VERSION), 10,
                       controls::Colour::SplashFaintInk, this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));

    auto *column = new QVBoxLayout(this);
    column->addStretch();
    column->addWidget(picture);
    column->addSpacing(8);
    column->addWidget(label(title, 18, controls::Colour::SplashInk, this));
    column->addWidget(lblVersion);
    column->addStretch();

    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void frmSplash::mouseDoubleClickEvent(QMouseEvent *) {
    close();
}

void frmSplash::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), controls::theme().colour(controls::Colour::SplashPaper));
    painter.setPen(controls::theme().colour(controls::Colour::SplashEdge));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace quillon::app
