// vCard files, versions 2.1, 3.0 and 4.0.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace vcard {

/// One line of a card, taken apart.
struct Property
{
    QString name;      ///< in capitals, without its group: "TEL"
    QStringList types; ///< in capitals: "WORK", "CELL", "PREF"
    QString value;     ///< decoded; its backslashes still there
    [[nodiscard]] bool is(const QString& type) const { return types.contains(type); }
    /// The value in its parts at ";" (a name, an address), the backslashes resolved.
    [[nodiscard]] QStringList parts() const;
    /// The value as one text, the backslashes resolved.
    [[nodiscard]] QString text() const;
};

struct Card
{
    int line = 0; ///< where it begins in the file
    std::vector<Property> properties;
    [[nodiscard]] const Property* find(const QString& name) const; ///< the first of the name, or null
};

struct Result
{
    std::vector<Card> cards;
    QStringList problems; ///< what was passed over, each with its line
};

/// The longest value of a property that is taken; pictures and sounds are passed over whatever their length.
inline constexpr qsizetype longestValue = 1 << 20;

/// Reads one card or many. Lines may be folded by a blank or by quoted-printable, in the middle of a letter
/// too; each value is in the character set it names, else as the file is. A card within a card is passed
/// over; one that is never closed is left out and told.
Result read(const QByteArray& bytes);

/// Writes cards of version 4.0.
class Writer
{
public:
    void begin();
    /// A property with one text; nothing is written for an empty one. @p name may hold parameters
    /// ("TEL;TYPE=work").
    void add(const QString& name, const QString& text);
    /// A property of parts; nothing is written when all are empty.
    void add(const QString& name, const QStringList& parts);
    void end();
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    void line(const QByteArray& text);
    QByteArray m_bytes;
};

} // namespace vcard
