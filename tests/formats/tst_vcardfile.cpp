// Contact cards of the three versions, as programs and telephones write them, and broken ones.
#include "formats/contactcard.h"
#include "support/runtest.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

QString shown(const OutlookContact& c)
{
    return QStringList{c.firstName,
                       c.lastName,
                       c.companyName,
                       c.title,
                       c.businessAddressStreet,
                       c.homeAddressStreet,
                       c.homeAddressCity,
                       c.businessTelephoneNumber,
                       c.homeTelephoneNumber,
                       c.email1Address}
        .join(u'|');
}

} // namespace

class TestVCardFile : public QObject
{
    Q_OBJECT

private slots:
    void peopleAreRead_data()
    {
        table(
            {"card", "person"},
            {{"2.1 quoted-printable",
              "VERSION:2.1\r\nN;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:M=FCller;J=F6rg\r\nTEL;WORK;"
              "VOICE:1\r\n"
              "ADR;WORK;ENCODING=QUOTED-PRINTABLE:;;1 Long "
              "Stre=\r\net;Town\r\nEMAIL;INTERNET:j@m.example\r\n",
              "Jörg|Müller|||1 Long Street|||1||j@m.example"},
             {"3.0 groups and escapes",
              "VERSION:3.0\r\nN:Lee;Ann;;;\r\nORG:Acme\\, Inc.;Sales\r\nitem1.TEL;type=HOME;type=pref:2\r\n"
              "item1.X-ABLabel:x\r\nADR;type=HOME:;;5 Elm\\n2nd floor;Ames;;;\r\nTITLE:Buyer\r\n",
              "Ann|Lee|Acme, Inc.|Buyer||5 Elm\n2nd floor|Ames||2|"},
             {"4.0 quoted parameters",
              "VERSION:4.0\r\nFN:Yuki "
              "Ito\r\nTEL;VALUE=uri;TYPE=\"voice,work\":tel:+1\r\nEMAIL:a@x.example\r\n"
              "EMAIL;PREF=1:b@x.example\r\nADR;LABEL=\"1 A: B; C\":;;1 A;Z\r\n",
              "Yuki|Ito||||1 A|Z|+1||b@x.example"},
             {"folded anywhere", "N:L\r\n ee;A\r\n\tnn\r\nORG:Ac\r\n  me\r\n", "Ann|Lee|Ac me|||||||"},
             {"picture skipped", "N:Lee;Ann\r\nPHOTO;ENCODING=b:AAAA\r\n BBBB\r\nBBB=\r\nTITLE:T\r\n",
              "Ann|Lee||T||||||"},
             {"company's card", "FN:Acme\r\nORG:Acme\r\nN:;;;;\r\n", "||Acme|||||||"},
             {"broken code, unknown set", "N;CHARSET=X-NONE;ENCODING=QUOTED-PRINTABLE:L=ZZe=C3=A9;A=\r\n",
              "A=|L=ZZeé||||||||"},
             {"card in a card", "N:Lee;Ann\r\nAGENT:\r\nBEGIN:VCARD\r\nN:No;One\r\nEND:VCARD\r\nTITLE:T\r\n",
              "Ann|Lee||T||||||"}});
    }
    void peopleAreRead()
    {
        FETCH(QString, card, person);
        const auto file = vcard::read("BEGIN:VCARD\r\n" + card.toUtf8() + "END:VCARD\r\n");
        QCOMPARE(file.cards.size(), size_t(1));
        QCOMPARE(shown(contactOf(file.cards.front())), person);
    }
    void whatCannotBeTakenIsTold()
    {
        const auto file =
            vcard::read("BEGIN:VCARD\nN:Cut;Bob\nBEGIN:VCARD\nN:Lee;Ann\nNOTE:" + QByteArray(2 << 20, 'x') +
                        "\nEND:VCARD\nEND:VCARD\nBEGIN:VCARD\nN:End");
        QCOMPARE(file.cards.size(), size_t(1));
        QCOMPARE(file.problems.join(u'/'),
                 u"line 1: the card that begins here is not closed and was left out/"
                 "line 5: the value is longer than 1 MB and was passed over/line 7: END without a BEGIN/"
                 "line 8: the card that begins here is not closed and was left out"_s);
    }
    void whatIsWrittenIsReadBack()
    {
        vcard::Writer writer;
        writer.begin();
        writer.add(u"N"_s, {u"van Dyke; the \\ elder"_s, u"Zoë"_s, {}, {}, {}});
        writer.add(u"ADR;TYPE=work"_s, {{}, {}, u"ö"_s.repeated(120) + u"\nline, two", u"Town"_s});
        writer.add(u"TITLE"_s, QString());
        writer.end();
        for (const QByteArray& line : writer.bytes().split('\n'))
            QVERIFY(line.size() <= 76 && line.isValidUtf8());
        const auto contact = contactOf(vcard::read(writer.bytes()).cards.at(0));
        QCOMPARE(contact.lastName + contact.firstName, u"van Dyke; the \\ elderZoë"_s);
        QCOMPARE(contact.businessAddressStreet, u"ö"_s.repeated(120) + u"\nline, two");
    }
};

JOBWRIGHT_TEST(TestVCardFile)
#include "tst_vcardfile.moc"
