#include "host/Marks.h"

namespace ovalia::host {

namespace {

Text element(const Variant& collection, std::int32_t index) {
  return getMember(collection.toObject(), u"", {index}).text();
}

Text percentEncoded(TextView text) {
  constexpr char16_t digits[] = u"0123456789ABCDEF";
  Text encoded;
  for (const char byte : toUtf8(text)) {
    const auto value = static_cast<unsigned char>(byte);
    if ((value | 0x20) >= 'a' && (value | 0x20) <= 'z')
      encoded += char16_t(value);
    else
      encoded.append({u'%', digits[value >> 4], digits[value & 15]});
  }
  return encoded;
}

}  // namespace

Text markText(const Variant& marks, const Variant& values, TextView name) {
  for (std::int32_t i = 0; i <= lastMark; ++i)
    if (element(marks, i) == name) return element(values, i);
  return {};
}

Text mailAddress(const Variant& marks, const Variant& values) {
  return u"mailto:?subject=" + percentEncoded(markText(marks, values, u"Asunto")) + u"&body=" +
         percentEncoded(markText(marks, values, u"Notas"));
}

}  // namespace ovalia::host
