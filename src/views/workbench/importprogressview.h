// The screen that shows how far a restore or an import is.
#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class Session;

/// frmImportProg: the session's status line over a bar. It keeps the windows painted while the work runs and
/// lets none of the user's input through, neither to itself nor to the workbench behind it, so it cannot be
/// closed meanwhile.
class ImportProgressView : public QDialog
{
    Q_OBJECT

public:
    explicit ImportProgressView(Session& session, QWidget* parent = nullptr);

    [[nodiscard]] bool isRunning() const { return m_running; }
    /// Comes before the work begins and goes after it has ended.
    void setRunning(bool running);

protected:
    void reject() override;
    void closeEvent(QCloseEvent* event) override;

private:
    void showLine(const QString& line);
    void showProgress(int done, int total);
    void paintNow();

    QLabel* m_line;
    QProgressBar* m_bar;
    QElapsedTimer m_sincePaint;
    bool m_running = false;
};
