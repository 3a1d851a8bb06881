#include "shell/dialogue.h"

#include <algorithm>
#include <ostream>
#include <streambuf>
#include <unistd.h>

#include "host/interrupt.h"
#include "shell/prompt.h"
#include "shell/session.h"

namespace Zelk::Tool::Shell {
namespace {

/// Drops what is written after Ctrl-C.
class UntilInterrupted : public std::streambuf {
 public:
  explicit UntilInterrupted(std::streambuf& target) : target_(target) {}

 protected:
  int_type overflow(int_type character) override {
    const char text = traits_type::to_char_type(character);
    return xsputn(&text, 1) == 1 ? traits_type::not_eof(character) : traits_type::eof();
  }

  std::streamsize xsputn(const char* text, std::streamsize size) override {
    // In pieces, since one long text may take long, too.
    constexpr std::streamsize kPiece = 4096;
    for (std::streamsize at = 0; at < size && !IsInterrupted(); at += kPiece) {
      const std::streamsize piece = std::min(kPiece, size - at);
      if (target_.sputn(text + at, piece) != piece) return at;
    }
    return size;
  }

  int sync() override { return target_.pubsync(); }

 private:
  std::streambuf& target_;
};

}  // namespace

void RunDialogue(const Language& language, const std::vector<std::string>& sources,
                 const std::string& output, const Streams& streams) {
  UntilInterrupted buffer(*streams.out.rdbuf());
  std::ostream out(&buffer);
  Session session(
      language, {streams.in, out, streams.err, streams.out_terminal, streams.err_terminal}, output);
  session.Load(sources);
  Prompt prompt(session);
  for (std::string line; !session.HasEnded() && prompt.Read(line);) {
    session.Fit(Render::TerminalOf(STDOUT_FILENO));
    const InterruptWatch watch;
    session.Run(line);
    if (IsInterrupted()) streams.out << '\n';
    out.flush();
  }
}

}  // namespace Zelk::Tool::Shell
