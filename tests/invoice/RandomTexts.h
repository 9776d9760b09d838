#pragma once

#include "core/TimeEntry.h"

#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace brisklog::test {

/// Everything random comes from here, so that a failure can be repeated by its seed.
class Chance {
public:
    explicit Chance(unsigned seed) : m_engine(seed) {}

    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_engine); }

    bool oneIn(int count) { return below(count) == 0; }

    template <class Container>
    const auto& oneOf(const Container& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(std::size(choices))))];
    }

private:
    std::mt19937 m_engine;
};

/// A piece of text as people, programs and accidents produce it.
[[nodiscard]] std::string randomPiece(Chance& chance);

/// Up to that many pieces in a row; may be empty.
[[nodiscard]] std::string randomLine(Chance& chance, int pieces);

/// A picture, intact or damaged.
[[nodiscard]] std::string randomLogo(Chance& chance);

/// Euros: ordinary, negative or absurdly large.
[[nodiscard]] double randomAmount(Chance& chance);

/// Fewer than sixty entries, some with their own rates.
[[nodiscard]] std::vector<TimeEntry> randomEntries(Chance& chance);

/// How many random documents a test makes, and the seed of the first: 40 from seed 1 on, unless the
/// environment says otherwise (BRISKLOG_RANDOM_DOCUMENTS, BRISKLOG_RANDOM_SEED).
[[nodiscard]] int randomDocumentCount();
[[nodiscard]] int firstRandomSeed();

} // namespace brisklog::test
