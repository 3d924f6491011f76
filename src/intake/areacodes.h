// The table of telephone area codes.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Area codes with the states they belong to, as the file areacodes.jwd lists them.
class AreaCodes
{
public:
    /// The file's name in the application folder.
    static constexpr QStringView fileName = u"areacodes.jwd";

    /// The table of a file; nothing when it cannot be opened.
    static std::optional<AreaCodes> load(const QString& path);
    /// The table of a text: one code a line, one blank, and the state, which is all that stands behind the
    /// first blank.
    static AreaCodes parse(QStringView text);

    /// The first three characters of a telephone number, whatever they are.
    static QString getAreaCode(const QString& text);
    /// The state of a code, empty for one that is not in the table.
    [[nodiscard]] QString getAreaCodeState(const QString& code) const;
    /// The first code of a state in the order of the file, empty for a state that has none.
    [[nodiscard]] QString getAreaCodefromState(const QString& state) const;
    /// True when the table gives this very state for the code.
    [[nodiscard]] bool chkAreaCode(const QString& code, const QString& state) const;

    [[nodiscard]] const QStringList& codes() const { return m_codes; }
    [[nodiscard]] const QStringList& states() const { return m_states; } ///< side by side with codes()

private:
    QStringList m_codes;
    QStringList m_states;
};
