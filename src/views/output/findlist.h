// The list of what was found.
#pragma once

#include <QListView>

/// Hits below the headings of their groups, with the words that were looked for marked.
class FindList : public QListView
{
    Q_OBJECT

public:
    explicit FindList(QWidget* parent = nullptr);

    /// The next record in this direction (1 or -1, or a page of them) becomes the current one; headings are
    /// passed over.
    void walk(int step);
    /// The first record becomes the current one when none is.
    void beginAtFirst();

protected:
    void keyPressEvent(QKeyEvent* event) override;

signals:
    /// The Enter key or a click on a record.
    void opened(const QModelIndex& index);
};
