// How the screen Fast Data Parsing looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmAutoParse;

namespace Ui {
class AutoParseView;
}

/// The dialog frmAutoParse: the card on the left, the fields it is sorted into on the right. It goes away
/// when the presenter has its decision; closed in any other way it leaves none.
class AutoParseView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    AutoParseView(FrmAutoParse& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~AutoParseView() override;

    void done(int result) override;

private:
    void paste();

    QSettings& m_layout;
    std::unique_ptr<Ui::AutoParseView> m_ui;
};
