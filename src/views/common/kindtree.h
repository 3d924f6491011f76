// The tree of texts that stand for records.
#pragma once

#include <QTreeView>

/// Shows a TreeModel: an icon for each kind of node, all open, and words in the middle while there is nothing
/// to list.
class KindTree : public QTreeView
{
    Q_OBJECT

public:
    explicit KindTree(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    /// Nodes of this kind get this icon (a name of icons::named()).
    void setKindIcon(const QString& kind, const QString& iconName);
    /// What stands in the tree while its root has no children.
    void setHint(const QString& hint);
    [[nodiscard]] const QString& hint() const { return m_hint; }
    /// True while there is nothing below the root.
    [[nodiscard]] bool isEmpty() const;

signals:
    /// A double click or the Enter key on a node. Other than activated(), never a single click, whatever the
    /// desktop's habit: opening leaves the screen.
    void opened(const QModelIndex& index);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_hint;
};
