// A screen with nothing on it.
#pragma once

#include <QString>
#include <QWidget>

/// A calm page that names its screen in the middle and says that there is nothing to show.
class EmptyView : public QWidget
{
    Q_OBJECT

public:
    EmptyView(const QString& name, const QString& title, const QString& iconName, QWidget* parent = nullptr);
};
