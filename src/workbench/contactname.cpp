#include "workbench/contactname.h"

#include <QStringList>

namespace {

void beginWithCapital(QString& name)
{
    if (!name.isEmpty())
        name.replace(0, 1, name.at(0).toUpper());
}

} // namespace

ContactName getFname(const QString& typed)
{
    QStringList words = typed.simplified().split(u' ', Qt::SkipEmptyParts);
    ContactName name;
    if (!words.isEmpty())
        name.first = words.takeFirst();
    if (!words.isEmpty())
        name.last = words.takeLast();
    name.middle = words.join(u' ');
    return name;
}

ContactName completedName(const ContactName& typed)
{
    const QString first = typed.first.simplified();
    const QString last = typed.last.simplified();
    if (first.isEmpty() == last.isEmpty())
        return {first, typed.middle, last};
    ContactName split = getFname(first.isEmpty() ? last : first);
    split.middle.prepend(typed.middle);
    return split.isComplete() ? split : ContactName{first, typed.middle, last};
}

ContactName normalisedName(const ContactName& typed)
{
    ContactName name{typed.first.simplified(), typed.middle.simplified().remove(u' '),
                     typed.last.simplified()};
    // Names are looked up split at their first blank, so a first name must not hold one. Of a last name the
    // first word alone is moved: what follows still reads as one name.
    if (const auto blank = name.first.indexOf(u' '); blank >= 0) {
        name.middle += name.first.mid(blank + 1);
        name.first.truncate(blank);
    }
    if (const auto blank = name.last.indexOf(u' '); blank >= 0) {
        name.middle += name.last.left(blank);
        name.last.remove(0, blank + 1);
    }
    beginWithCapital(name.first);
    beginWithCapital(name.last);
    return name;
}
