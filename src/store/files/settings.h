// The settings store: the few values that are kept outside the database.
#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

/// Keys with named values, in the file "settings.ini" of the application folder. A key is a path with
/// backslashes ("Software\\Ferrow Software\\Jobwright") below a hive; hives and keys are groups of the file.
class RegAccess
{
public:
    enum class Hive { ClassesRoot, CurrentUser };
    /// Kinds of value, with the numbers that they are known by.
    enum ValueType { TextValue = 1, NumberValue = 4 };

    /// The file lies in @p folder; it is made at the first value written.
    explicit RegAccess(const QString& folder);

    void CreateNewKey(Hive hive, const QString& key);
    /// Writes a value as the kind that it is: whole numbers as numbers, everything else as text.
    void SetKeyValue(Hive hive, const QString& key, const QString& name, const QVariant& value);
    /// Writes a value as the given kind.
    void SetValueEx(Hive hive, const QString& key, const QString& name, const QVariant& value,
                    ValueType type);
    /// A text or a 32-bit number; "" when there is none; -1 for a value of any other type.
    [[nodiscard]] QVariant QueryValueEx(Hive hive, const QString& key, const QString& name);
    /// As QueryValueEx.
    [[nodiscard]] QVariant QueryValue(Hive hive, const QString& key, const QString& name);
    /// The value as text.
    [[nodiscard]] QString QueryValueS(Hive hive, const QString& key, const QString& name);

    /// The file itself, for window places and other plain settings of the views.
    [[nodiscard]] QSettings& file() { return m_file; }

private:
    QSettings m_file;
};
