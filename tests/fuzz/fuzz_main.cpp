// A fuzz driver without libFuzzer: every seed once, then COUNT inputs made
// by mutating the seeds with a generator started from SEED, so that a
// failure comes back with the same two numbers. "--seeds DIR" writes the
// seeds as files instead, the starting corpus for the libFuzzer build.
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/net_fuzz.h"

namespace {

using varkesh::fuzz::Seeds;

void Run(const std::string& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

// A few edits of the kinds that break a message stream: flipped bits,
// the marks of the wire where they do not belong, odd numbers, pieces cut
// out, and pieces of other inputs spliced in.
std::string Mutate(std::string input, const std::vector<std::string>& seeds, std::mt19937& random) {
  static const std::string kTokens[] = {std::string(1, '\0'), "\x01", "}",     "\xFF",  "-1",
                                        "2147483648",         "0",    "GLGF}", "GCNL}", "GAMV}"};
  const auto below = [&random](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
  };
  for (std::size_t edits = 1 + below(4); edits > 0; --edits) {
    const std::size_t at = below(input.size() + 1);
    switch (below(5)) {
      case 0:
        if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << below(8)));
        break;
      case 1:
        if (at < input.size()) input[at] = static_cast<char>(below(256));
        break;
      case 2:
        input.insert(at, kTokens[below(std::size(kTokens))]);
        break;
      case 3:
        input.erase(at, 1 + below(32));
        break;
      default: {
        const std::string& other = seeds[below(seeds.size())];
        const std::size_t from = below(other.size() + 1);
        input.insert(at, other, from, 1 + below(256));
      }
    }
  }
  return input;
}

bool ReadNumber(std::string_view text, unsigned long& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

int WriteSeeds(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  const std::vector<std::string> seeds = Seeds();
  for (std::size_t i = 0; i < seeds.size(); ++i)
    std::ofstream(folder / ("seed-" + std::to_string(i)), std::ios::binary) << seeds[i];
  std::printf("%zu seeds written to %s\n", seeds.size(), folder.c_str());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "--seeds") return WriteSeeds(argv[2]);
  unsigned long count = 0;
  unsigned long start = std::random_device()();
  if (argc < 2 || argc > 3 || !ReadNumber(argv[1], count) ||
      (argc == 3 && !ReadNumber(argv[2], start))) {
    std::fprintf(stderr, "usage: %s COUNT [SEED]\n       %s --seeds DIR\n", argv[0], argv[0]);
    return 2;
  }
  std::printf("seed %lu\n", start);
  std::fflush(stdout);
  const std::vector<std::string> seeds = Seeds();
  for (const std::string& seed : seeds) Run(seed);
  std::mt19937 random(static_cast<std::mt19937::result_type>(start));
  for (unsigned long i = 0; i < count; ++i) Run(Mutate(seeds[i % seeds.size()], seeds, random));
  std::printf("%zu seeds and %lu mutated inputs ran clean\n", seeds.size(), count);
  return 0;
}
