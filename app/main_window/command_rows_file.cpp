#include "app/main_window/command_rows.h"

#include <QFileInfo>

namespace quillon::app::command_rows {

namespace {

using controls::KeyContext;

constexpr QStringView fileMenu = u"mnuFile";
constexpr QStringView recentFilesMenu = u"mnuFileMRU";

bool hasFile(const Editor &editor) {
    // A recovered document has a name but no file to be read again.
    return QFileInfo(editor.state.m_FileName).isAbsolute();
}

constexpr CommandRow Rows[] = {
    menu(fileMenu, text::FileMenu),
    {.entry = {u"mnuFileNew", fileMenu, text::FileNew, u"Ctrl+N"},
     .button = {u"new", text::NewTip, 1, 1},
     .run = [](frmMain &form) { form.editor().commands.mnuFileNew_Click(); }},
    {.entry = {u"mnuFileOpen", fileMenu, text::FileOpen, u"Ctrl+O"},
     .button = {u"open", text::OpenTip, 1, 2},
     .run = [](frmMain &form) { form.editor().commands.mnuFileOpen_Click(); }},
    {.entry = {u"mnuFileReload", fileMenu, text::FileReload},
     .enabled = hasFile,
     .run = [](frmMain &form) { form.editor().commands.mnuFileReload_Click(); }},
    line(u"mnuFileLine1", fileMenu),
    {.entry = {u"mnuFileSave", fileMenu, text::FileSave, u"Ctrl+S"},
     .button = {u"save", text::SaveTip, 1, 3},
     .enabled = hasContent,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().commands.mnuFileSave_Click(); }},
    {.entry = {u"mnuFileSaveAs", fileMenu, text::FileSaveAs},
     .enabled = hasContent,
     .run = [](frmMain &form) { form.editor().commands.mnuFileSaveAs_Click(); }},
    line(u"mnuFileLine2", fileMenu),
    {.entry = {u"mnuFilePrint", fileMenu, text::FilePrint, u"Ctrl+P"},
     .button = {u"print", text::PrintTip, 2, 1},
     .enabled = hasDocument,
     .buttonNews = news::Document,
     .run = [](frmMain &form) { form.editor().preview.mnuFilePrint_Click(); }},
    {.entry = {u"mnuFilePrintTree", fileMenu, text::FilePrintTree},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.mnuFilePrintTree_Click(); }},
    line(u"mnuFileLineMRU", fileMenu),
    menu(recentFilesMenu, text::FileMRU, fileMenu),
    array(u"mnuFileMRUFiles", recentFilesMenu, text::FileMRUNone),
    line(u"mnuFileLine3", fileMenu),
    {.entry = {u"mnuFileClose", fileMenu, text::FileClose},
     .enabled = hasContent,
     .run = [](frmMain &form) { form.editor().commands.mnuFileClose_Click(); }},
    {.entry = {u"mnuFileQuit", fileMenu, text::FileQuit, u"Alt+F4", KeyContext::WindowManager},
     .run = [](frmMain &form) { form.close(); }},
    line(u"mnuFileLinePrint", fileMenu),
    {.entry = {u"mnuFilePrintPreview", fileMenu, text::FilePrintPreview},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.mnuFilePrintPreview_Click(); }},
    {.entry = {u"mnuFilePrintTreePreview", fileMenu, text::FilePrintTreePreview},
     .enabled = hasDocument,
     .run = [](frmMain &form) { form.mnuFilePrintTreePreview_Click(); }},
};

} // namespace

std::span<const CommandRow> ofFileMenu() {
    return Rows;
}

} // namespace quillon::app::command_rows
