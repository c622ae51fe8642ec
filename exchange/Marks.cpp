#include "exchange/Marks.h"

namespace ovalia {

namespace {

constexpr std::size_t count = 61;

std::shared_ptr<TextArray> emptyTexts() {
  return std::make_shared<TextArray>(std::initializer_list<std::size_t>{count});
}

}  // namespace

Marks::Marks() : Marca(emptyTexts()), Campo(emptyTexts()) {}

void Marks::set(std::size_t index, TextView name, TextView text) {
  Marca->at({index}) = name;
  Campo->at({index}) = text;
}

void Marks::setPair(std::size_t index, TextView name, TextView text) {
  set(index, name, text);
  set(index + 1, Text(name) + u"2", text);
}

}  // namespace ovalia
