#include "view/browser/browser_page.h"

#include <QFile>
#include <QUuid>
#include <QWebEngineRegisterProtocolHandlerRequest>
#include <QWebEngineScriptCollection>

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif

namespace quillon::browser {

namespace {

/// The program's scripts run in a world of their own, which the page's scripts do not see.
constexpr auto OwnWorld = QWebEngineScript::ApplicationWorld;

const QString PlaceScript = QStringLiteral("place");
const QString ThemeScript = QStringLiteral("theme");

QString scriptText(const QString &name) {
    QFile file(QStringLiteral(":/browser/") + name);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

QString themeScript(bool isDark) {
    QString code = scriptText(QStringLiteral("show_theme.js"));
    return code.replace(QLatin1String("%DARK%"), QVariant(isDark).toString());
}

} // namespace

BrowserPage::BrowserPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent), word_(QUuid::createUuid().toString(QUuid::Id128)) {
    QString guard = scriptText(QStringLiteral("guard.js"));
    guard.replace(QLatin1String("%WORD%"), word_);
    insertScript(QStringLiteral("guard"), guard, QWebEngineScript::DocumentCreation);
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    denyPermissions();
}

void BrowserPage::denyPermissions() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    connect(this, &QWebEnginePage::permissionRequested, this,
            [](const QWebEnginePermission &permission) { permission.deny(); });
#else
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl &origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
#endif
}

void BrowserPage::insertScript(const QString &name, const QString &code,
                               QWebEngineScript::InjectionPoint when) {
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(code);
    script.setInjectionPoint(when);
    script.setWorldId(OwnWorld);
    scripts().insert(script);
}

void BrowserPage::removeScript(const QString &name) {
    for (const QWebEngineScript &old : scripts().find(name))
        scripts().remove(old);
}

void BrowserPage::setTheme(std::optional<bool> isDark) {
    removeScript(ThemeScript);
    if (isDark)
        insertScript(ThemeScript, themeScript(*isDark), QWebEngineScript::DocumentCreation);
}

void BrowserPage::showTheme(bool isDark) {
    runJavaScript(themeScript(isDark), OwnWorld);
}

void BrowserPage::setPlace(const QString &place) {
    removeScript(PlaceScript);
    if (place.isEmpty())
        return;
    QString code = scriptText(QStringLiteral("restore_place.js"));
    code.replace(QLatin1String("%PLACE%"), place);
    insertScript(PlaceScript, code, QWebEngineScript::DocumentReady);
}

void BrowserPage::askForPlace(const std::function<void(const QString &)> &answer) {
    runJavaScript(scriptText(QStringLiteral("keep_place.js")), OwnWorld,
                  [answer](const QVariant &place) { answer(place.toString()); });
}

void BrowserPage::askForLife(const std::function<void()> &answer) {
    runJavaScript(QStringLiteral("true"), OwnWorld, [answer](const QVariant &alive) {
        // Without a value it says that there is no page any more.
        if (alive.isValid())
            answer();
    });
}

bool BrowserPage::acceptNavigationRequest(const QUrl &, NavigationType type, bool isMainFrame) {
    // What the program itself asks for. Jumps within a page do not come here.
    return isMainFrame && type == NavigationTypeTyped;
}

QStringList BrowserPage::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) {
    return {};
}

void BrowserPage::javaScriptAlert(const QUrl &, const QString &text) {
    Q_EMIT message(text);
}

bool BrowserPage::javaScriptConfirm(const QUrl &, const QString &text) {
    Q_EMIT message(text);
    return false;
}

bool BrowserPage::javaScriptPrompt(const QUrl &, const QString &text, const QString &, QString *) {
    Q_EMIT message(text);
    return false;
}

void BrowserPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &text, int,
                                           const QString &) {
    if (!text.startsWith(word_))
        return;
    const QString told = text.mid(word_.size());
    if (told.startsWith(QLatin1Char('i')))
        Q_EMIT clicked(told.mid(1));
    else
        Q_EMIT linkFollowed(told.mid(1));
}

} // namespace quillon::browser
