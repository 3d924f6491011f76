// Addresses and documents.
#include "store/gateway/datajw_impl.h"

#include "base/text.h"

using namespace Qt::StringLiterals;
using gateway::keyOf;

namespace {

QString selectDocument(Key key)
{
    return u"Select * from document where resumekey="_s + gateway::text(key);
}

Dox readDox(const RecordSet& row)
{
    Dox dox;
    dox.docKey = keyOf(row, u"ResumeKey");
    dox.docType = row.text(u"Type");
    dox.docPath = row.text(u"Path");
    dox.docNotes = row.text(u"Notes");
    dox.style = row.text(u"Style");
    dox.sentCount = keyOf(row, u"Sent");
    dox.dateEntry = row.date(u"CreationDate");
    dox.Target = row.text(u"Target");
    dox.version = row.text(u"Version");
    dox.docName = row.text(u"Document");
    return dox;
}

} // namespace

RecordSet DataJW::getAddress(Key key)
{
    return m_impl->guarded(u"DataJW-GetAddress"_s, RecordSet::unread(), [&](auto& call) {
        return call.run(u"Select * from Address where AddressKey = "_s + gateway::text(key));
    });
}

RecordSet DataJW::getAddressAll()
{
    return m_impl->guarded(u"DataJW-GetAddressAll"_s, RecordSet::unread(),
                           [&](auto& call) { return call.run(u"Select * from Address"_s); });
}

Key DataJW::getAddressKey(const QString& name)
{
    return m_impl->guarded(u"DataJW-GetAddressKey"_s, Key(0), [&](auto& call) {
        const auto [first, last] = gateway::splitName(name);
        return keyOf(call.firstRow(u"Select * from Contact where firstName='"_s + first +
                                   u"' and lastName='" + last + u'\''),
                     u"AddressKey");
    });
}

RecordSet DataJW::getDocument(Key key)
{
    return m_impl->guarded(u"DataJW-GetDocument"_s, RecordSet::unread(), [&](auto& call) {
        return call.rowsOr(selectDocument(key), u"DataJW-GetDocument - DocumentKey not found."_s, 0);
    });
}

QString DataJW::getDocumentByKey(Key key)
{
    return m_impl->guarded(u"DataJW-GetDocumentByKey"_s, QString(),
                           [&](auto& call) { return call.firstRow(selectDocument(key)).text(u"Document"); });
}

Key DataJW::getDocumentKey(const QString& name, bool quiet)
{
    const auto find = [&](auto& call) {
        const RecordSet document = call.firstRow(u"Select * from document where document='"_s + name + u'\'');
        if (document.isEmpty())
            call.say(u"DataJW-GetDocumentKey - No document found"_s);
        return keyOf(document, u"ResumeKey");
    };
    return m_impl->guarded(u"DataJW-GetDocumentKey"_s, Key(0), find, quiet);
}

std::vector<Dox> DataJW::loadDox()
{
    return m_impl->guarded(u"DataJW-LoadDox"_s, std::vector<Dox>(), [&](auto& call) {
        std::vector<Dox> documents;
        for (RecordSet rows = call.run(u"Select * from document"_s); !rows.atEnd(); rows.next())
            documents.push_back(readDox(rows));
        if (documents.empty())
            call.say(u"DataJW-LoadDox"_s + text::crlf + u"No Document records found.");
        return documents;
    });
}
