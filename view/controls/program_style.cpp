#include "view/controls/program_style.h"

#include "view/controls/theme.h"
#include "view/controls/themed_icon.h"

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillon::controls {

namespace {

constexpr int FocusFrameAlpha = 140;
/// Ahead of and behind the lines of menus.
constexpr int LineMargin = 5;

constexpr std::pair<QStyle::StandardPixmap, QStringView> Icons[] = {
    {QStyle::SP_MessageBoxInformation, u"standard/information"},
    {QStyle::SP_MessageBoxWarning, u"standard/warning"},
    {QStyle::SP_MessageBoxCritical, u"standard/critical"},
    {QStyle::SP_MessageBoxQuestion, u"standard/question"},
    {QStyle::SP_ArrowBack, u"standard/back"},
    {QStyle::SP_ArrowLeft, u"standard/back"},
    {QStyle::SP_ArrowForward, u"standard/forward"},
    {QStyle::SP_ArrowRight, u"standard/forward"},
    {QStyle::SP_ArrowUp, u"panel/up"},
    {QStyle::SP_ArrowDown, u"panel/down"},
    {QStyle::SP_FileDialogToParent, u"standard/parent"},
    {QStyle::SP_FileDialogBack, u"standard/back"},
    {QStyle::SP_FileDialogNewFolder, u"standard/new-folder"},
    {QStyle::SP_FileDialogListView, u"standard/list"},
    {QStyle::SP_FileDialogDetailedView, u"standard/details"},
    {QStyle::SP_FileDialogContentsView, u"toolbar/find"},
    {QStyle::SP_FileDialogInfoView, u"standard/information"},
    {QStyle::SP_DirIcon, u"standard/folder"},
    {QStyle::SP_DirClosedIcon, u"standard/folder"},
    {QStyle::SP_DirOpenIcon, u"standard/folder"},
    {QStyle::SP_DirLinkIcon, u"standard/folder"},
    {QStyle::SP_DirLinkOpenIcon, u"standard/folder"},
    {QStyle::SP_DirHomeIcon, u"standard/home"},
    {QStyle::SP_DesktopIcon, u"standard/computer"},
    {QStyle::SP_ComputerIcon, u"standard/computer"},
    {QStyle::SP_DriveHDIcon, u"standard/drive"},
    {QStyle::SP_DriveCDIcon, u"standard/drive"},
    {QStyle::SP_DriveDVDIcon, u"standard/drive"},
    {QStyle::SP_DriveFDIcon, u"standard/drive"},
    {QStyle::SP_DriveNetIcon, u"standard/drive"},
    {QStyle::SP_TrashIcon, u"standard/folder"},
    {QStyle::SP_FileIcon, u"standard/file"},
    {QStyle::SP_FileLinkIcon, u"standard/file"},
    {QStyle::SP_LineEditClearButton, u"panel/close"},
    {QStyle::SP_DockWidgetCloseButton, u"panel/close"},
    {QStyle::SP_TitleBarCloseButton, u"panel/close"},
    {QStyle::SP_TitleBarNormalButton, u"standard/float"},
    {QStyle::SP_ToolBarHorizontalExtensionButton, u"standard/more"},
    {QStyle::SP_ToolBarVerticalExtensionButton, u"panel/down"},
    {QStyle::SP_BrowserReload, u"toolbar/redo"},
};

/// Empty where the program has no icon of its own.
QStringView nameOf(QStyle::StandardPixmap which) {
    const auto *const found =
        std::ranges::find(Icons, which, &std::pair<QStyle::StandardPixmap, QStringView>::first);
    return found == std::end(Icons) ? QStringView() : found->second;
}

/// The style itself fills the frame with a veil, which makes what is written below it fainter. Like
/// the style's, it is to be seen only once the keyboard moves the focus.
void drawFocusFrame(const QStyleOption &option, QPainter &painter) {
    if (!option.state.testFlag(QStyle::State_KeyboardFocusChange))
        return;
    const auto ink = option.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText
                                                                   : QPalette::WindowText;
    QColor colour = option.palette.color(ink);
    colour.setAlpha(FocusFrameAlpha);
    painter.save();
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// The style makes edges a shade darker than the window, which a dark window swallows. So that they
/// come out as the theme has them it is given another window.
template <typename Option, typename Base, typename Draw>
void withEdges(const Base &option, const Draw &draw) {
    const auto *known = qstyleoption_cast<const Option *>(&option);
    if (!known || !theme().isDark())
        return draw(option);
    constexpr int ShadeOfEdges = 140;
    Option edged(*known);
    edged.palette.setColor(QPalette::Window, theme().colour(Colour::Edge).lighter(ShadeOfEdges));
    draw(edged);
}

} // namespace

ProgramStyle::ProgramStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const {
    const auto draw = [&](const QStyleOption &drawn) {
        QProxyStyle::drawPrimitive(element, &drawn, painter, widget);
    };
    switch (element) {
    case PE_FrameFocusRect:
        return drawFocusFrame(*option, *painter);
    case PE_PanelMenu:
        draw(*option);
        painter->setPen(theme().colour(Colour::Edge));
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
        return withEdges<QStyleOptionButton>(*option, draw);
    case PE_FrameLineEdit:
    case PE_FrameGroupBox:
        return withEdges<QStyleOptionFrame>(*option, draw);
    default:
        draw(*option);
    }
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const {
    const auto *entry = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const bool isLine = element == CE_MenuItem && entry && entry->text.isEmpty() &&
                        entry->menuItemType == QStyleOptionMenuItem::Separator;
    if (!isLine)
        return QProxyStyle::drawControl(element, option, painter, widget);
    painter->fillRect(option->rect.adjusted(LineMargin, (option->rect.height() - 1) / 2,
                                            -LineMargin, -option->rect.height() / 2),
                      theme().colour(Colour::Edge));
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const {
    const auto draw = [&](const QStyleOptionComplex &drawn) {
        QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
    };
    if (control == CC_ComboBox)
        withEdges<QStyleOptionComboBox>(*option, draw);
    else if (control == CC_SpinBox)
        withEdges<QStyleOptionSpinBox>(*option, draw);
    else
        draw(*option);
}

QIcon ProgramStyle::standardIcon(StandardPixmap which, const QStyleOption *option,
                                 const QWidget *widget) const {
    const QStringView name = nameOf(which);
    return name.isEmpty() ? QProxyStyle::standardIcon(which, option, widget) : themedIcon(name);
}

QPixmap ProgramStyle::standardPixmap(StandardPixmap which, const QStyleOption *option,
                                     const QWidget *widget) const {
    const QStringView name = nameOf(which);
    if (name.isEmpty())
        return QProxyStyle::standardPixmap(which, option, widget);
    const int side = proxy()->pixelMetric(PM_SmallIconSize, option, widget);
    return themedIcon(name).pixmap(QSize(side, side), widget ? widget->devicePixelRatio() : 1.0);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *result) const {
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
        // What a button does is said by its text.
        return 0;
    case SH_EtchDisabledText:
        // A shadow would make what is faint hard to read.
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

} // namespace quillon::controls
