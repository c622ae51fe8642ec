#include "host/TourMail.h"

#include <QApplication>
#include <QLineEdit>
#include <fstream>

#include "desktop/MailReading.h"
#include "desktop/QtText.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

constexpr TextView notesGrid = u"grdNota";
constexpr TextView addressee = u"propietario@correo.example";

// While it lives what is kept among the user's documents goes into the folder.
class PassingDocuments {
 public:
  explicit PassingDocuments(const fs::path& folder) {
    fs::create_directories(folder);
    std::ofstream(folder / "user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"" << folder.native() << "\"\n";
    qputenv(variable, QByteArray::fromStdString(folder.native()));
  }
  ~PassingDocuments() {
    if (was_.isNull())
      qunsetenv(variable);
    else
      qputenv(variable, was_);
  }
  PassingDocuments(const PassingDocuments&) = delete;
  PassingDocuments& operator=(const PassingDocuments&) = delete;

 private:
  static constexpr const char* variable = "XDG_CONFIG_HOME";
  const QByteArray was_ = qgetenv(variable);
};

class MailChapter {
 public:
  MailChapter(const TourCast& cast, CardPage& page)
      : cast_(cast),
        book_(cast.book),
        stage_(cast.stage),
        page_(page),
        pane_(*page.pane(notesGrid)),
        folder_(cast.folder / "correo") {}

  void play() {
    book_.chapter(u"Correo");
    book_.step(u"Escribir un correo desde la ficha de una nota y guardarlo sin enviarlo");
    page_.showPane(pane_);
    QApplication::processEvents();
    const std::int32_t note = pane_.grid().currentKey();
    stage_.withCard([&] { pane_.openCurrent(); },
                    [&] {
                      const PassingDocuments here(folder_);
                      stage_.uses(
                          QStringLiteral("Enviar correo"), [&](QDialog& dialog) { fill(dialog); },
                          [&] { stage_.presses(u"ID_EMail"); });
                      stage_.closes();
                    });
    tell(note);
  }

 private:
  void fill(QDialog& dialog) {
    auto* to = dialog.findChild<QLineEdit*>(QStringLiteral("para"));
    if (!to) return dialog.reject();
    TourStage::type(*to, toQt(addressee));
    stage_.picture("correo.png");
    stage_.answers(QStringLiteral("El mensaje se ha guardado en:"), QStringLiteral("Aceptar"), nullptr,
                   [&] { TourStage::clickButton(dialog, QStringLiteral("guardar")); });
  }

  void tell(std::int32_t note) {
    const auto mail =
        desktop::readMail(logicPath(fromUtf8(kept().native())), logicPath(fromUtf8((folder_ / "").native())));
    if (!mail) return book_.fail(u"no hay ningún correo en la carpeta");
    book_.line(u"De: " + mail->from);
    book_.line(u"Para: " + mail->to);
    book_.line(u"Asunto: " + mail->subject);
    book_.line(u"Texto: " + replaceAll(mail->text, CRLF, u"⏎"));
    for (const auto& attached : mail->attachments) book_.line(u"Adjunto: " + attached.name);
    const AnnotationTable& table = pane_.list().annotations();
    book_.check(mail->to.find(addressee) != Text::npos, u"va a quien se ha escrito");
    book_.check(mail->subject == cast_.witness.value(table.name, note, u"Asunto"),
                u"lleva el asunto de la nota");
    book_.check(trimBlanks(replaceAll(mail->text, CRLF, u" ")) ==
                    trimBlanks(replaceAll(cast_.witness.value(table.name, note, u"Notas"), CRLF, u" ")),
                u"lleva las notas");
    book_.check(mail->attachments.size() == cast_.witness.attachments(table.attachments, note).size(),
                u"lleva todos los documentos de la nota");
  }

  fs::path kept() const {
    for (const auto& entry : fs::directory_iterator(folder_))
      if (entry.path().extension() == ".eml") return entry.path();
    return folder_ / "nada.eml";
  }

  const TourCast& cast_;
  TourBook& book_;
  TourStage& stage_;
  CardPage& page_;
  ListPane& pane_;
  const fs::path folder_;
};

}  // namespace

void prepareMail() {
  const Platform& here = Platform::current();
  here.settings->save(here.app.title, u"Correo", u"Servidor", u"smtp://127.0.0.1:9");
}

void playMail(const TourCast& cast, CardPage& page) { MailChapter(cast, page).play(); }

}  // namespace ovalia::host
