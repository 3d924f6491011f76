#include "store/gateway/keylists.h"

#include <algorithm>
#include <set>

namespace {

/// The longest text of a 16-bit key, "-32768".
constexpr qsizetype longestKey = 6;

} // namespace

QString keylists::replacement(Key newKey)
{
    return newKey == 0 ? QString() : QString::number(newKey);
}

/// One list on its way through the pairs: its text so far and the pairs that may meet it next.
class KeyListRewriter::Walk
{
public:
    Walk(const KeyListRewriter& rewriter, const QString& list)
        : m_rewriter(rewriter)
        , m_list(list)
    {
        collect(0, m_list.size());
    }

    Result run()
    {
        int replacements = 0;
        while (!m_next.empty()) {
            const size_t place = *m_next.begin();
            m_next.erase(m_next.begin());
            m_first = place + 1;
            if (replace(m_rewriter.m_pairs[place]))
                ++replacements;
        }
        return {m_list, replacements};
    }

private:
    /// Notes the pairs not yet passed whose old key stands somewhere in the stretch [from, to).
    void collect(qsizetype from, qsizetype to)
    {
        for (qsizetype start = from; start < to; ++start) {
            for (qsizetype length = 1; length <= std::min(longestKey, to - start); ++length)
                collectKey(QStringView(m_list).mid(start, length));
        }
    }

    void collectKey(QStringView text)
    {
        bool isKey = false;
        const int key = text.toInt(&isKey);
        if (!isKey)
            return;
        const auto known = m_rewriter.m_byOldKey.find(key);
        if (known == m_rewriter.m_byOldKey.end())
            return;
        const auto& places = known->second;
        m_next.insert(std::lower_bound(places.begin(), places.end(), m_first), places.end());
    }

    bool replace(const Pair& pair)
    {
        // What earlier pairs did may have taken the key away again.
        qsizetype found = m_list.indexOf(pair.oldText);
        if (found < 0)
            return false;
        QString rest;
        std::vector<qsizetype> seams;
        qsizetype done = 0;
        for (; found >= 0; found = m_list.indexOf(pair.oldText, done)) {
            rest += QStringView(m_list).mid(done, found - done);
            seams.push_back(rest.size());
            rest += pair.newText;
            done = found + pair.oldText.size();
        }
        rest += QStringView(m_list).mid(done);
        m_list = rest;
        // New texts of digits, some of them a later pair's key, arise only around the seams.
        for (const qsizetype seam : seams)
            collect(std::max<qsizetype>(0, seam - longestKey),
                    std::min(m_list.size(), seam + pair.newText.size() + longestKey));
        return true;
    }

    const KeyListRewriter& m_rewriter;
    QString m_list;
    std::set<size_t> m_next;
    size_t m_first = 0;
};

KeyListRewriter::KeyListRewriter(const std::vector<std::pair<Key, Key>>& newOld)
{
    m_pairs.reserve(newOld.size());
    for (const auto& [newKey, oldKey] : newOld) {
        m_byOldKey[oldKey].push_back(m_pairs.size());
        m_pairs.push_back({QString::number(oldKey), keylists::replacement(newKey)});
    }
}

KeyListRewriter::Result KeyListRewriter::rewrite(const QString& list) const
{
    return Walk(*this, list).run();
}
