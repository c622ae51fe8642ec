#pragma once

#include <vector>

#include "tests/cardkit/AgencyStatements.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia::kit {

// Tests of attachments: a note (key 501, record 120) that keeps them in DocuNotaIP, a data folder, and the
// host's card on top showing record 120. The tables answer the component's statements.
class AttachmentsTest : public CardTest {
 protected:
  void SetUp() override;

  // A file somewhere on the user's disk, and its path.
  Text source(TextView name, Text content = u"contenido");

  // A document as an earlier add has left it: file, row and counter.
  void attached(TextView stored, TextView shown, Text content = u"anterior");

  // The rows of a table of attachments: "1: 120 1 501 plano.pdf < 120F00.pdf", that is IdDocu, Id, IdAgencia,
  // IdNota, NombreOrg, NombreArch.
  std::vector<Text> rows(TextView table = u"DocuNotaIP") const;

  // The files below the data folder: "Doc1\Doc2\Doc0\120F00.pdf".
  std::vector<Text> tree() const { return here.files.filesBelow(agencyFolder); }

  // The counter in the list's row (from 1).
  std::int32_t counter(int row = 1) const { return stored(u"NArchivos", row).toLong(); }

  // What the dialog of the main form answers: the chosen paths in its own way, or a failure; the path to save
  // as, "" where nothing was chosen.
  void userChooses(Text fileName);
  void userSavesAs(Text fileName);
  void dialogFails(std::int32_t number);

  const Text agencyFolder = u"\\Datos\\Agencia";
  const Text leaf = agencyFolder + u"\\Doc1\\Doc2\\Doc0\\";  // of record 120
  FakeTableRef documents;                                    // DocuNotaIP

 private:
  void dialogAnswers(TextView method, Text fileName);
};

}  // namespace ovalia::kit
