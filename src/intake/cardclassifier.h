// Sorting the lines of a business card into the fields of an address.
#pragma once

#include "intake/areacodes.h"

#include <QString>

#include <array>
#include <optional>

/// The twelve fields that a card is sorted into, in the order in which screens and commands list them.
enum CardField {
    CardAddress, ///< the street, and every line that is nothing else; lines are joined with CR LF
    CardCity,
    CardState,
    CardZip,
    CardPhone1,
    CardPhone2,
    CardPhone3,
    CardFax,
    CardEmail1,
    CardEmail2,
    CardUrl1,
    CardUrl2,
    CardFieldCount
};

/// Something for each of the twelve fields: their values, or the names of the controls that show them.
using CardFields = std::array<QString, CardFieldCount>;

/// The names of the fields where nothing else is said: "txtAddress", "txtCity" ... "txtURL2".
const CardFields& cardControls();

/// A sorted card.
struct Card
{
    CardFields fields;
    /// "212 - NY": area code and state of the last line that looked like a telephone number; the state is
    /// empty when the table does not know the code. Empty without such a line.
    QString lastPhone;
};

/// Sorts the lines of a card by a fixed order of tests without any weighing: the first test that a line
/// passes decides, unless its field is taken. It errs on the side of the street, and a line that is nothing
/// else joins the address, so nothing typed is lost but what a further line of its kind replaces.
class CardClassifier
{
public:
    explicit CardClassifier(AreaCodes areaCodes);

    /// The card of a text; lines may end in CR LF, LF or CR. Lines without a visible character are skipped.
    [[nodiscard]] Card classify(const QString& text) const;

    struct CityLine
    {
        QString city;
        QString state;
        QString zip; ///< "02139" or "02139-1234"
    };
    struct PhoneLine
    {
        QString areaCode; ///< the first three characters of the number
        QString state;    ///< empty: no known area code, so no telephone number
    };

    /// True for "12 Mill Lane", for "123 Main", and for every text that holds a word of the street list
    /// anywhere: "support" holds "po" and is a street too.
    static bool isStreet(const QString& line);
    /// The parts of "Boston, MA 02139"; nothing for a line that is not of this form.
    static std::optional<CityLine> cityStateZip(const QString& line);
    /// The area code of a line that holds nothing but a number and words like "Phone"; nothing for any other.
    [[nodiscard]] std::optional<PhoneLine> phone(const QString& line) const;
    static bool isMail(const QString& line);
    static bool isWeb(const QString& line);

private:
    void sort(const QString& line, Card& card) const;
    bool sortPhone(const QString& line, Card& card) const;

    AreaCodes m_areaCodes;
};
