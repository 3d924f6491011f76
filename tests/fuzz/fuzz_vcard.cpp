// Any bytes as contact cards: people come out, and a name that is written is read back the same.
#include "formats/contactcard.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const vcard::Card& card : vcard::read(bytes).cards) {
        const OutlookContact contact = contactOf(card);
        vcard::Writer writer;
        writer.begin();
        writer.add(QStringLiteral("TITLE"), contact.title);
        writer.end();
        const auto again = vcard::read(writer.bytes()).cards;
        if (again.size() != 1)
            std::abort();
    }
    return 0;
}
