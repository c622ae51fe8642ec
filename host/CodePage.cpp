#include "host/CodePage.h"

#include <iconv.h>

#include <array>
#include <cerrno>

namespace ovalia::host {

namespace {

constexpr int western = 1252, macintosh = 10000, utf8 = 65001;

std::string nameOf(int number) {
  if (number == utf8) return "UTF-8";
  return number == macintosh ? "MACINTOSH" : "CP" + std::to_string(number);
}

class Converter {
 public:
  explicit Converter(int number) : handle_(iconv_open("UTF-8", nameOf(number).c_str())) {}
  ~Converter() {
    if (usable()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool usable() const { return handle_ != iconv_t(-1); }

  std::string operator()(std::string bytes) const {
    std::string made;
    char* in = bytes.data();
    for (std::size_t left = bytes.size(); left > 0;) {
      std::array<char, 256> piece;
      char* out = piece.data();
      std::size_t room = piece.size();
      const bool bad = iconv(handle_, &in, &left, &out, &room) == std::size_t(-1) && errno != E2BIG;
      made.append(piece.data(), piece.size() - room);
      if (!bad) continue;
      made += "\xEF\xBF\xBD";
      ++in;
      --left;
    }
    return made;
  }

 private:
  const iconv_t handle_;
};

}  // namespace

Text fromCodePage(int number, std::string bytes) {
  const Converter converter(number);
  if (converter.usable()) return fromUtf8(converter(std::move(bytes)));
  if (number != western) return fromCodePage(western, std::move(bytes));
  Text plain;
  for (const char c : bytes) plain += static_cast<unsigned char>(c);
  return plain;
}

}  // namespace ovalia::host
