#include <cstdio>
#include <stdexcept>

#include "cli.h"
#include "persist/file_coder.h"
#include "persist/saved_game.h"

namespace varkesh::cli {

namespace {

constexpr const char* kDecodeUsage = "decode FILE.vsh";
constexpr const char* kEncodeUsage = "encode FILE OUT.vsh";

}  // namespace

int CmdDecode(const Args& args) {
  Options options = ParseOptions(args, {}, {}, kDecodeUsage);
  if (options.positional.size() != 1) Usage(kDecodeUsage);
  const std::string& path = options.positional[0];
  std::string plain;
  try {
    plain = DecodeText(ReadFileBytes(path));
  } catch (const std::runtime_error& error) {
    BadInput("varkesh-cli: " + path + ": " + error.what());
  }
  std::fwrite(plain.data(), 1, plain.size(), stdout);
  return 0;
}

int CmdEncode(const Args& args) {
  Options options = ParseOptions(args, {}, {}, kEncodeUsage);
  if (options.positional.size() != 2) Usage(kEncodeUsage);
  // Written anew from what was read, so the coded file holds the exact layout
  // even when the input had LF line ends or an old-style name.
  Game game = ReadGameFile(options.positional[0]);
  WriteFileBytes(options.positional[1], EncodeSavedGame(game.match, &game.view.marks));
  return 0;
}

}  // namespace varkesh::cli
