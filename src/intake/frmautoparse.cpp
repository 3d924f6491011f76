#include "intake/frmautoparse.h"

#include "base/text.h"
#include "store/engine/storeerror.h"
#include "store/gateway/datajw.h"
#include "web/streetmap.h"
#include "web/webpages.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int fileNotFound = 53;

std::vector<FieldRow> parseForm()
{
    std::vector<FieldRow> rows{{u"txtBizCard"_s, {}, SaveOn::Never},
                               {u"txtCurrent"_s, {}, SaveOn::Never},
                               {u"Label2"_s, {}, SaveOn::Never}};
    for (const QString& control : cardControls())
        rows.push_back({control, {}, SaveOn::Never});
    return rows;
}

/// What a screen has, a line for each field; city, state and zip stand together as on a card.
QString joined(const Form& form, const CardFields& controls)
{
    const auto value = [&](CardField field) -> QString { return form.text(controls[field]); };
    QStringList lines{value(CardAddress),
                      value(CardCity) + u", " + value(CardState) + u"  " + value(CardZip)};
    for (int field = CardPhone1; field < CardFieldCount; ++field)
        lines.append(value(static_cast<CardField>(field)));
    return lines.join(text::crlf);
}

} // namespace

FrmAutoParse::FrmAutoParse(Session& session)
    : m_session(session)
    , m_form(parseForm())
    , m_classifier(AreaCodes())
{
}

void FrmAutoParse::load(const Request& request)
{
    m_mode = Undecided;
    m_company = request.company;
    m_form.clear();
    m_form.setText(u"txtCurrent"_s, request.current);
    for (const QString& button : {u"cmdSave"_s, u"cmdMerge"_s, u"cmdDiscard"_s})
        m_form.setEnabled(button, false);
    m_form.setEnabled(u"cmdLocation"_s, !m_company.isEmpty());
    m_form.requestFocus(u"txtBizCard"_s);
    m_classifier = readAreaCodes();
}

CardClassifier FrmAutoParse::readAreaCodes()
{
    const QString path = m_session.file(AreaCodes::fileName.toString());
    if (auto codes = AreaCodes::load(path))
        return CardClassifier(*std::move(codes));
    const StoreError missing(tr("File not found"), fileNotFound, u"Jobwright"_s);
    m_session.logError(
        u"frmAutoParse - Load" + text::crlf +
            tr("The area codes could not be read from %1. Telephone numbers will stay with the address.")
                .arg(QDir::toNativeSeparators(path)),
        0, &missing);
    return CardClassifier(AreaCodes());
}

FrmAutoParse::Answer FrmAutoParse::answer() const
{
    QStringList fields;
    for (const QString& control : cardControls())
        fields.append(m_form.text(control));
    return {m_mode, fields};
}

void FrmAutoParse::cmdVerify()
{
    const Card card = m_classifier.classify(m_form.text(u"txtBizCard"_s));
    for (int field = 0; field < CardFieldCount; ++field)
        m_form.setText(cardControls()[field], card.fields[field]);
    m_form.setText(u"Label2"_s, card.lastPhone);
    m_form.setEnabled(u"cmdSave"_s, true);
    m_form.setEnabled(u"cmdDiscard"_s, true);
    if (!m_form.text(u"txtCurrent"_s).isEmpty())
        m_form.setEnabled(u"cmdMerge"_s, true);
}

void FrmAutoParse::decide(Mode mode)
{
    m_mode = mode;
    emit hideRequested();
}

void FrmAutoParse::cmdSave()
{
    decide(Save);
}

void FrmAutoParse::cmdMerge()
{
    decide(Merge);
}

void FrmAutoParse::cmdDiscard()
{
    decide(Discard);
}

void FrmAutoParse::cmdLocation()
{
    DataJW& dataJW = m_session.dataJW();
    const QString name = text::quoteFix(m_company);
    if (name.isEmpty() || dataJW.getCompanyKey(name) == 0)
        return;
    const RecordSet address = dataJW.getAddress(dataJW.getCompany(name).key(u"AddressKey").value_or(0));
    webpages::openURL(m_session,
                      streetMapAddress(webpages::mapHost(m_session), {.street = address.text(u"Address1"),
                                                                      .city = address.text(u"City"),
                                                                      .state = address.text(u"State"),
                                                                      .zip = address.text(u"Zip")}));
}

bool fillFromCard(Form& target, const CardFields& controls, const QString& company, Navigator& navigator)
{
    const auto answer =
        navigator
            .open(u"FrmAutoParse"_s,
                  QVariant::fromValue(FrmAutoParse::Request{joined(target, controls), company}))
            .value<FrmAutoParse::Answer>();
    if (answer.mode != FrmAutoParse::Save && answer.mode != FrmAutoParse::Merge)
        return false;
    for (int field = 0; field < CardFieldCount; ++field) {
        const QString& control = controls[field];
        // A street box may hold the line break between its two stored lines and nothing else: that is empty.
        if (answer.mode == FrmAutoParse::Save || target.text(control).trimmed().isEmpty())
            target.amend(control, answer.fields.value(field));
    }
    return true;
}
