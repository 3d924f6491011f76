// What sorting a business card costs a line, over ten thousand different cards.
#include "intake/cardclassifier.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int cardCount = 10'000;

AreaCodes areaCodes()
{
    const auto codes = AreaCodes::load(QStringLiteral(JOBWRIGHT_SOURCE_DIR) + u"/data/areacodes.jwd");
    return codes ? *codes : AreaCodes();
}

/// Nine lines of every kind, most of which have to fail a good many tests first.
QString card(int number)
{
    const QString n = QString::number(number);
    return u"Marguerite Oyelaran " + n + u"\nHead of Procurement\nTidewater Rope Works\n" + n +
           u" Harbor Street\nBoston, MA 02139-1234\nDirect: (617) 555-0" + n +
           u"\nfax 617 555 0143\nm.oyelaran" + n + u"@tidewaterrope.example\nwww.tidewaterrope.example";
}

void sortCards(benchmark::State& state)
{
    const CardClassifier classifier(areaCodes());
    std::vector<QString> cards;
    qint64 lines = 0;
    for (int number = 0; number < cardCount; ++number) {
        cards.push_back(card(number));
        lines += cards.back().count(u'\n') + 1;
    }
    for (auto _ : state) {
        for (const QString& text : cards)
            benchmark::DoNotOptimize(classifier.classify(text));
    }
    state.counters["time_a_line"] =
        benchmark::Counter(static_cast<double>(lines),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(sortCards)->Unit(benchmark::kMillisecond);

} // namespace
