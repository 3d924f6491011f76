#include "assessment/frmquestionnaire.h"

using namespace Qt::StringLiterals;

namespace {

QString option(int number)
{
    return u"optAnswer%1"_s.arg(number - 1);
}

std::vector<FieldRow> rows()
{
    std::vector<FieldRow> all{{u"lblQuestion"_s, {}, SaveOn::Never},
                              {u"lblPlace"_s, {}, SaveOn::Never},
                              {u"lblUnoffered"_s, {}, SaveOn::Never}};
    for (int number = 1; number <= FrmQuestionnaire::options; ++number)
        all.push_back({option(number), {}, SaveOn::Never});
    return all;
}

} // namespace

FrmQuestionnaire::FrmQuestionnaire()
    : m_form(rows())
{
}

void FrmQuestionnaire::load(const Request& request)
{
    m_answer = request.former;
    m_form.setText(u"lblQuestion"_s, request.question);
    m_form.setText(u"lblPlace"_s, request.place);
    for (int number = 1; number <= options; ++number) {
        m_form.setItems(option(number), request.answers.mid(number - 1, 1));
        m_form.setVisible(option(number), number <= request.answers.size());
        m_form.setText(option(number), number == request.former ? u"1"_s : u"0"_s);
    }
    const QStringList more = request.answers.mid(options);
    m_form.setText(u"lblUnoffered"_s,
                   more.isEmpty()
                       ? QString()
                       : tr("Seven answers can be chosen. Not offered: %1").arg(more.join(u", "_s)));
    m_form.setVisible(u"lblUnoffered"_s, !more.isEmpty());
    m_form.setVisible(u"lblPlace"_s, !request.place.isEmpty());
}

void FrmQuestionnaire::choose(int number)
{
    if (number < 1 || number > options || !m_form.isVisible(option(number)))
        return;
    for (int other = 1; other <= options; ++other)
        m_form.setText(option(other), other == number ? u"1"_s : u"0"_s);
}

void FrmQuestionnaire::cmdAnswer()
{
    for (int number = 1; number <= options; ++number) {
        if (m_form.isVisible(option(number)) && m_form.text(option(number)) == u"1")
            m_answer = number;
    }
    emit answered();
}
