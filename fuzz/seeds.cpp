// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives a fuzz target its seeds, and damaged copies of each, which are the same in every run.
// Usage: kavo-fuzz-seeds TARGET FOLDER COPIES
// A target that finds a rule broken ends the program; the last line then names the seed.

#include "fuzz_input.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#define TARGET(name) extern "C" int fuzz_##name(const std::uint8_t* data, std::size_t size);
KAVO_FUZZ_TARGETS
#undef TARGET

namespace {

namespace fs = std::filesystem;

struct Target
{
    std::string_view name;
    int (*run)(const std::uint8_t* data, std::size_t size);
};

#define TARGET(name) Target{#name, fuzz_##name},
constexpr std::array kTargets = {KAVO_FUZZ_TARGETS};
#undef TARGET

/// Pieces that files of the game turn on, and bytes that belong to none of them.
constexpr std::array<std::string_view, 12> kPieces = {"\r\n",  "\n", "\r",         "==\n",     "00:00:00", "99:59:99",
                                                      "Level", "-1", "4294967296", "\xFF\xFE", "\xD0\x96", "<&\""};

class Damage final
{
public:
    [[nodiscard]] std::string of(std::string bytes)
    {
        for (std::size_t steps = 1 + below(4); steps > 0; --steps) damage(bytes);
        return bytes;
    }

private:
    void damage(std::string& bytes)
    {
        const std::size_t place = below(bytes.size() + 1);
        const std::size_t length = below(std::min<std::size_t>(bytes.size() - place, 64) + 1);
        switch (below(6)) {
        case 0: bytes.erase(place, length); break;
        case 1: bytes.insert(place, bytes.substr(place, length)); break;
        case 2: bytes.insert(place, kPieces[below(kPieces.size())]); break;
        case 3: bytes.resize(place); break;
        case 4: bytes.replace(place, length, kPieces[below(kPieces.size())]); break;
        default:
            if (place < bytes.size()) bytes[place] = static_cast<char>(below(256));
        }
    }

    /// A number below `end`, which is above 0. (A distribution of the library may differ between systems.)
    std::size_t below(std::size_t end) { return m_numbers() % end; }

    std::mt19937 m_numbers;
};

void run(const Target& target, const std::string& bytes)
{
    target.run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::vector<fs::path> seedsIn(const fs::path& folder)
{
    std::vector<fs::path> seeds;
    for (const auto& entry : fs::directory_iterator(folder)) seeds.push_back(entry.path());
    std::sort(seeds.begin(), seeds.end());
    return seeds;
}

std::string bytesOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string_view> words(argv, argv + argc);
    int copies = -1;
    if (words.size() == 4) std::from_chars(words[3].data(), words[3].data() + words[3].size(), copies);
    const auto target = std::find_if(kTargets.begin(), kTargets.end(),
                                     [&](const Target& one) { return words.size() == 4 && one.name == words[1]; });
    if (copies < 0 || target == kTargets.end()) {
        std::fputs("Usage: kavo-fuzz-seeds TARGET FOLDER COPIES\n", stderr);
        return 2;
    }
    Damage damage;
    const std::vector<fs::path> seeds = seedsIn(words[2]);
    for (const fs::path& seed : seeds) {
        std::fprintf(stderr, "%s\n", seed.c_str());
        const std::string bytes = bytesOf(seed);
        run(*target, bytes);
        for (int i = 0; i < copies; ++i) run(*target, damage.of(bytes));
    }
    return seeds.empty() ? 1 : 0;
}
