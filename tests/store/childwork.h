// Work on a store that tests interrupt, in processes of their own where it must be.
#pragma once

#include "base/silentports.h"
#include "store/campaignfile.h"

#include <cstdio>

/// Takes whatever is asked, and tells it on standard output: the messages of a process of its own.
class Mute : public SilentPrompts, public SilentDesktop
{
public:
    Answer msgBox(const QString& text, Buttons, const QString&) override
    {
        std::puts(qPrintable(text));
        return Answer::Ok;
    }
};

/// A campaign with enough in it that each kind of work can be met in its middle.
inline XmlText killCampaign(bool restore, const QString& prefix, int companies)
{
    using namespace Qt::StringLiterals;
    XmlText file(restore);
    for (int i = 1; i <= companies; ++i) {
        file.add(u"Address"_s, u"AddressKey='%1' City='C'"_s.arg(i));
        file.add(u"Company"_s, u"CompanyKey='%1' Name='%2%1' AddressKey='%1' Notes='first'"_s.arg(
                                   QString::number(i), prefix));
        for (int j = 0; j < 3; ++j) {
            file.add(u"Contact"_s,
                     u"ContactKey='%1' FirstName='F%1' LastName='L' CompanyKey='%2' AddressKey='%2'"_s
                         .arg(3 * i + j)
                         .arg(i));
            file.add(u"History"_s, u"ContactKey='%1' ContactCount='1' Topic='t'"_s.arg(3 * i + j));
            file.add(
                u"Position"_s,
                u"PositionKey='%1' Title='P%1' CompanyKey='%2' ContactList='%1'"_s.arg(3 * i + j).arg(i));
        }
        file.add(u"Event"_s, u"Event='E' CompanyKey='%1'"_s.arg(i));
    }
    return file;
}
