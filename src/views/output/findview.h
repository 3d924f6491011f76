// How "find anything" looks.
#pragma once

#include <QDialog>

#include <memory>

class FindAnything;
class QModelIndex;

namespace Ui {
class FindView;
}

/// The box that opens over any screen: words on top, hits below. The arrow keys walk along the hits while the
/// keyboard stays in the words; Enter takes one, Esc or a click beside the box closes it.
class FindView : public QDialog
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit FindView(FindAnything& presenter, QWidget* parent = nullptr);
    ~FindView() override;

    /// Puts the box below the upper edge of @p window, its right end at @p right.
    void placeOver(const QWidget& window);
    /// The row that was taken; opened by whoever has closed the box.
    [[nodiscard]] int takenRow() const { return m_taken; }
    void setText(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void take(const QModelIndex& index);
    void follow();

    FindAnything& m_presenter;
    std::unique_ptr<Ui::FindView> m_ui;
    qint64 m_currentKey = -1; ///< what the user has walked to, of which group
    int m_currentGroup = -1;
    int m_taken = -1;
};
