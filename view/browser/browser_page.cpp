#include "view/browser/browser_page.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
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

QString revealScript(const QList<quint32> &nodes) {
    QStringList numbers;
    for (const quint32 node : nodes)
        numbers.append(QString::number(node));
    QString code = scriptText(QStringLiteral("reveal.js"));
    return code.replace(QLatin1String("%NODES%"),
                        QLatin1Char('[') + numbers.join(QLatin1Char(',')) + QLatin1Char(']'));
}

QString themeScript(bool isDark) {
    QString code = scriptText(QStringLiteral("show_theme.js"));
    return code.replace(QLatin1String("%DARK%"), QVariant(isDark).toString());
}

} // namespace

BrowserPage::BrowserPage(QWebEngineProfile *profile, QObject *parent)
    : QWebEnginePage(profile, parent), word_(QUuid::createUuid().toString(QUuid::Id128)) {
    insertScript(QStringLiteral("guard"), scriptWithWord(QStringLiteral("guard.js")),
                 QWebEngineScript::DocumentCreation);
    insertScript(QStringLiteral("more"), scriptWithWord(QStringLiteral("load_more.js")),
                 QWebEngineScript::DocumentReady);
    connect(this, &QWebEnginePage::registerProtocolHandlerRequested, this,
            [](QWebEngineRegisterProtocolHandlerRequest request) { request.reject(); });
    denyPermissions();
}

QString BrowserPage::scriptWithWord(const QString &name) const {
    QString code = scriptText(name);
    return code.replace(QLatin1String("%WORD%"), word_);
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

void BrowserPage::setPlace(const QString &place, const QList<quint32> &revealed) {
    removeScript(PlaceScript);
    QString code;
    if (!place.isEmpty()) {
        code = scriptText(QStringLiteral("restore_place.js"));
        code.replace(QLatin1String("%SCROLLS%"), QVariant(revealed.isEmpty()).toString());
        code.replace(QLatin1String("%PLACE%"), place);
    }
    if (!revealed.isEmpty())
        code += revealScript(revealed);
    if (!code.isEmpty())
        insertScript(PlaceScript, code, QWebEngineScript::DocumentReady);
}

void BrowserPage::reveal(const QList<quint32> &nodes) {
    runJavaScript(revealScript(nodes), OwnWorld);
}

void BrowserPage::takeIn(const QString &page) {
    QString code = scriptText(QStringLiteral("take_in.js"));
    // As a string of JSON, which every text can be.
    const QByteArray list = QJsonDocument(QJsonArray{page}).toJson(QJsonDocument::Compact);
    code.replace(QLatin1String("%PAGE%"), QString::fromUtf8(list.sliced(1, list.size() - 2)));
    runJavaScript(code, OwnWorld);
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
    if (text.size() <= word_.size() || !text.startsWith(word_))
        return;
    const QString told = text.mid(word_.size() + 1);
    switch (text.at(word_.size()).unicode()) {
    case 'i':
        Q_EMIT clicked(told);
        break;
    case 'm':
        Q_EMIT moreWanted(told.section(QLatin1Char(' '), 0, 0).toUInt(),
                          told.endsWith(QLatin1String(" last")));
        break;
    case 'l':
        Q_EMIT linkFollowed(told);
        break;
    default:
        break;
    }
}

} // namespace quillon::browser
