#include "host/TourBook.h"

namespace ovalia::host {

TourBook::TourBook(const std::filesystem::path& folder)
    : file_(folder / "transcript.txt", std::ios::binary) {}

void TourBook::write(TextView line) { file_ << toUtf8(line) << '\n'; }

void TourBook::chapter(TextView title) { write(u"\n== " + Text(title)); }

void TourBook::step(TextView what) { write(u"\nPaso " + toText(++steps_) + u". " + Text(what)); }

void TourBook::line(TextView text) { write(u"  " + Text(text)); }

void TourBook::check(bool holds, TextView expected) {
  if (holds)
    line(u"Bien: " + Text(expected));
  else
    fail(u"no es así: " + Text(expected));
}

void TourBook::fail(TextView what) {
  ++failures_;
  line(u"AVISO: " + Text(what));
}

bool TourBook::close() {
  write(failures_ == 0 ? u"\nRecorrido terminado: todo ha ido como se esperaba."
                       : u"\nRecorrido terminado CON AVISOS: " + toText(failures_));
  return failures_ == 0 && file_.flush().good();
}

}  // namespace ovalia::host
