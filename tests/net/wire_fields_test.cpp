// Numbers read from the fields of a peer's message: a sign kept, anything
// else after the digits ignored, any length of digits held in range.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "net/wire.h"

namespace varkesh::net {
namespace {

TEST(WireFields, FieldNumberReadsTheLeadingSignedDigits) {
  const struct {
    std::string field;
    int number;
  } cases[] = {
      {"0", 0},
      {"17", 17},
      {"-1", -1},
      {"-2", -2},
      {"-305", -305},
      {"-0", 0},
      {"12x", 12},
      {"-7 ", -7},
      {"", 0},
      {"-", 0},
      {"x5", 0},
      {"+5", 0},
      {"--5", 0},
      {" 5", 0},
      {"2147483647", INT_MAX},
      {"2147483648", INT_MAX},
      {"99999999999999999999999", INT_MAX},
      {"-2147483648", INT_MIN},
      {"-2147483649", INT_MIN},
      {"-99999999999999999999999", INT_MIN},
  };
  for (const auto& [field, number] : cases) EXPECT_EQ(FieldNumber(field), number) << field;
}

TEST(WireFields, NumbersComeBackFromTheMessageTheyWereSentIn) {
  const std::string message = NumberMessage("GAMV", {2, -1, 0, -2147483647 - 1, 2147483647});
  const Message parts = SplitMessage(message);
  EXPECT_EQ(parts.verb, "GAMV");
  const int expected[] = {2, -1, 0, INT_MIN, INT_MAX};
  for (std::size_t i = 0; i < std::size(expected); ++i)
    EXPECT_EQ(FieldNumberAt(parts.payload, i), expected[i]) << "field " << i;
  EXPECT_EQ(FieldNumberAt(parts.payload, std::size(expected)), 0) << "past the last field";
}

}  // namespace
}  // namespace varkesh::net
