#include "desktop/MailDialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/DiskFile.h"
#include "desktop/QtText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

constexpr int yesNoQuestion = 36, information = 64, yes = 6;

QString sizeText(qint64 bytes) {
  return QLocale(QLocale::Spanish).formattedDataSize(bytes, 0, QLocale::DataSizeTraditionalFormat);
}

QPushButton* button(const char16_t* caption, const char* name, QWidget* parent) {
  auto* made = new QPushButton(toQt(caption), parent);
  made->setObjectName(QLatin1String(name));
  // Enter in a box is no word to send a mail.
  made->setAutoDefault(false);
  return made;
}

// What to say of a failure on the way.
Text reasonFor(const Failure& failure) {
  switch (failure.number()) {
    case failure::fileNotFound:
      return u"uno de los documentos ya no se encuentra o no se puede leer.";
    case failure::diskFull:
      return u"no hay sitio en el disco.";
    default:
      return failure.description();
  }
}

}  // namespace

MailDialog::MailDialog(const MailMessage& draft, SmtpServer server, QWidget* owner)
    : QDialog(owner), from_(draft.from), server_(std::move(server)) {
  setWindowTitle(QStringLiteral("Enviar correo"));
  build();
  fill(draft);
  resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 28);
  to_->setFocus();
}

void MailDialog::build() {
  to_ = new QLineEdit(this);
  to_->setObjectName(QStringLiteral("para"));
  to_->setPlaceholderText(QStringLiteral("nombre@servidor.es; otro@servidor.es"));
  subject_ = new QLineEdit(this);
  subject_->setObjectName(QStringLiteral("asunto"));
  text_ = new QPlainTextEdit(this);
  text_->setObjectName(QStringLiteral("texto"));
  text_->setTabChangesFocus(true);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("adjuntos"));
  list_->setMaximumHeight(fontMetrics().height() * 6);
  message_ = new QLabel(this);
  message_->setObjectName(QStringLiteral("mensaje"));
  message_->setWordWrap(true);
  message_->setTextFormat(Qt::PlainText);
  message_->hide();

  auto* form = new QFormLayout;
  form->addRow(QStringLiteral("De:"), new QLabel(toQt(from_), this));
  form->addRow(QStringLiteral("&Para:"), to_);
  form->addRow(QStringLiteral("A&sunto:"), subject_);
  form->addRow(QStringLiteral("&Texto:"), text_);
  form->addRow(QStringLiteral("A&djuntos:"), list_);

  send_ = button(u"&Enviar", "enviar", this);
  keep_ = button(u"&Guardar mensaje", "guardar", this);
  keep_->setToolTip(QStringLiteral("Guarda el mensaje en un fichero para enviarlo con otro programa"));
  cancel_ = button(u"&Cancelar", "cancelar", this);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(keep_);
  buttons->addStretch();
  buttons->addWidget(send_);
  buttons->addWidget(cancel_);

  auto* all = new QVBoxLayout(this);
  all->addLayout(form, 1);
  all->addWidget(message_);
  all->addLayout(buttons);

  QObject::connect(send_, &QPushButton::clicked, this, [this] { send(); });
  QObject::connect(keep_, &QPushButton::clicked, this, [this] { keep(); });
  QObject::connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
  for (int key : {Qt::Key_Return, Qt::Key_Enter})
    QObject::connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(key)), this), &QShortcut::activated, this,
                     [this] { send(); });
}

void MailDialog::fill(const MailMessage& draft) {
  to_->setText(toQt(draft.to));
  subject_->setText(toQt(draft.subject));
  text_->setPlainText(toQt(draft.body));
  text_->document()->setModified(false);
  for (const MailAttachment& attached : draft.attachments) addAttachment(attached);
  list_->setCurrentRow(0);
}

void MailDialog::addAttachment(const MailAttachment& attached) {
  const QFileInfo file(diskFile(attached.path));
  const bool there = file.isFile();
  const QString name = attached.name.empty() ? file.fileName() : toQt(attached.name);
  const QString remark = there ? sizeText(file.size()) : QStringLiteral("no se encuentra");
  auto* item = new QListWidgetItem(QStringLiteral("%1 (%2)").arg(name, remark), list_);
  item->setCheckState(there ? Qt::Checked : Qt::Unchecked);
  if (!there) item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
  attachments_.push_back(attached);
}

MailMessage MailDialog::message() const {
  MailMessage made{from_, fromQt(to_->text()), fromQt(subject_->text()), fromQt(text_->toPlainText()), {}};
  for (int i = 0; i < list_->count(); ++i)
    if (list_->item(i)->checkState() == Qt::Checked)
      made.attachments.push_back(attachments_[static_cast<std::size_t>(i)]);
  return made;
}

bool MailDialog::written() const {
  return to_->isModified() || subject_->isModified() || text_->document()->isModified();
}

void MailDialog::say(TextView text) {
  message_->setText(toQt(text));
  message_->setVisible(!text.empty());
}

bool MailDialog::addressed() {
  const auto addresses = mailAddresses(fromQt(to_->text()));
  if (addresses && !addresses->empty()) return true;
  say(addresses ? Text(u"Escriba la dirección del destinatario.")
                : Text(u"«") + fromQt(to_->text()) + u"» no es una dirección de correo.");
  to_->setFocus();
  return false;
}

void MailDialog::setSending(bool sending) {
  sending_ = sending;
  calledBack_ = false;
  for (QWidget* input : std::initializer_list<QWidget*>{to_, subject_, text_, list_, send_, keep_})
    input->setEnabled(!sending);
  if (sending) cancel_->setFocus();
}

void MailDialog::send() {
  if (sending_ || !addressed()) return;
  setSending(true);
  say(u"Enviando el mensaje...");
  Text reason;
  try {
    reason = deliverMail(server_, message(), [this] {
      QCoreApplication::processEvents();
      return !calledBack_;
    });
  } catch (...) {
    reason = reasonFor(currentFailure());
  }
  sent_ = reason.empty();
  setSending(false);
  if (sent_) return accept();
  say(u"El mensaje no se ha enviado: " + reason);
  send_->setFocus();
}

void MailDialog::keep() {
  try {
    const Text file = keepMail(message());
    Platform::current().screen->messageBox(join(u"El mensaje se ha guardado en:", CRLF, file, CRLF, CRLF,
                                                u"Ábralo con su programa de correo para enviarlo."),
                                           information, u"Correo");
    accept();
  } catch (...) {
    say(u"El mensaje no se ha guardado: " + reasonFor(currentFailure()));
  }
}

void MailDialog::done(int result) {
  if (sending_) {
    calledBack_ = true;
    return;
  }
  const bool loses = result == Rejected && written();
  if (loses && Platform::current().screen->messageBox(u"¿Desea cerrar el mensaje sin enviarlo?",
                                                      yesNoQuestion, u"Correo") != yes)
    return;
  QDialog::done(result);
}

}  // namespace ovalia::desktop
