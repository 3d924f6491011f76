// Any bytes as a key list and the keys to be replaced in it: the quick rewriting gives what the slow one
// gives.
#include "base/text.h"
#include "store/gateway/keylists.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void require(bool holds, const char* rule, const QString& list)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", rule, qPrintable(list));
    std::abort();
}

/// Pair by pair, each as a replacement of text.
KeyListRewriter::Result oneByOne(const std::vector<std::pair<Key, Key>>& newOld, QString list)
{
    int replacements = 0;
    for (const auto& [newKey, oldKey] : newOld) {
        const QString oldText = QString::number(oldKey);
        if (!list.contains(oldText))
            continue;
        list.replace(oldText, keylists::replacement(newKey));
        ++replacements;
    }
    return {list, replacements};
}

/// The first byte is the number of pairs; each of them takes four bytes.
std::vector<std::pair<Key, Key>> takePairs(const unsigned char*& data, std::size_t& size)
{
    std::vector<std::pair<Key, Key>> pairs;
    if (size == 0)
        return pairs;
    std::size_t count = *data++ % 16;
    for (--size; count > 0 && size >= 4; --count, data += 4, size -= 4) {
        std::pair<Key, Key> pair;
        std::memcpy(&pair.first, data, 2);
        std::memcpy(&pair.second, data + 2, 2);
        pairs.push_back(pair);
    }
    return pairs;
}

void checkParser(const QString& list)
{
    const QStringList keys = text::csvParse(list);
    require(!keys.contains(QString()), "empty key", list);
    require(text::csvParse(keys.join(u',')) == keys, "joined again", list);
    QString without = list;
    QString joined = keys.join(QString());
    require(without.remove(u',') == joined, "something but commas is gone", list);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const auto pairs = takePairs(data, size);
    const QString list = QString::fromUtf8(reinterpret_cast<const char*>(data),
                                           static_cast<qsizetype>(std::min<std::size_t>(size, 400)));
    checkParser(list);
    const auto quick = KeyListRewriter(pairs).rewrite(list);
    const auto slow = oneByOne(pairs, list);
    require(quick.list == slow.list, "other list", list);
    require(quick.replacements == slow.replacements, "other count", list);
    return 0;
}
