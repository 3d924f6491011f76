// The main window around the five screens.
#pragma once

#include "base/reportpage.h"

#include <QMainWindow>
#include <QSettings>
#include <QTimer>

#include <memory>
#include <vector>

class FormBinder;
class FrmData;
class ImportProgressView;
class QLabel;
class QProgressBar;
class QToolBar;
class ScreenFrame;
class ScreenView;
struct ScreenRow;

namespace Ui {
class WorkbenchWindow;
}

/// The window frmData: menus, toolbar, company selector, tab strip, one frame a screen, status bar. Closing
/// it runs the presenter's unload routine.
class WorkbenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers size and splitters; both must outlive the window.
    WorkbenchWindow(FrmData& presenter, QSettings& layout);
    ~WorkbenchWindow() override;

    /// The visible screen as a page: the company's name as heading, the labelled values, the longer texts.
    [[nodiscard]] ReportDocument printableForm() const;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildFrames();
    void buildTabs();
    void buildTools();
    QAction* addToolAction(QWidget& place, const QString& key, const QString& text, const QString& icon,
                           const QString& tip);
    void describeTool(QAction& action, const QString& key, const QString& tip);
    void buildNewMenu(QAction& button);
    void buildMenus();
    void buildToolEntry(QAction& action, const ScreenRow& row);
    void buildStatusBar();
    void buildUndo();
    void buildShortcuts();
    void connectSelector();
    void connectPresenter();

    void render();
    void renderUndo();
    void offerUndo(const QString& done);
    [[nodiscard]] QStringList unsavedFields() const;
    void renderCompanyLabel();
    void fillSelector();
    void runTool(const QString& key);
    void runMenu(const QString& entry);
    void helpForField();
    void selectTab(int index);
    void openTab(int index);
    void enterScreen();
    [[nodiscard]] ScreenView& openScreen() const;
    void leaveField();

    FrmData& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::WorkbenchWindow> m_ui;
    FormBinder* m_binder = nullptr;
    std::vector<ScreenFrame*> m_frames; ///< in the order of their tabs
    QAction* m_new = nullptr;
    QString m_newPicture; ///< the name of m_new's picture
    QLabel* m_proc = nullptr;
    QLabel* m_saved = nullptr;
    QLabel* m_offer = nullptr; ///< what was deleted last, with the way back
    QTimer m_offerEnds;
    QLabel* m_position = nullptr;
    QLabel* m_counts = nullptr;
    QLabel* m_version = nullptr;
    QProgressBar* m_load = nullptr;
    std::unique_ptr<ImportProgressView> m_progress;
    bool m_unloaded = false;
};
