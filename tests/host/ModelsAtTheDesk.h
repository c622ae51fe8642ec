#pragma once

#include <filesystem>

#include "routines/SqlText.h"
#include "tests/host/DocumentsAtTheDesk.h"

namespace ovalia::host {

// An agency with four models, their files in their place, among the subjects of the sample.
class ModelsAtTheDesk : public DocumentsAtTheDesk {
 protected:
  ModelsAtTheDesk() {
    database().Execute(u"DELETE FROM Plantilla");
    std::filesystem::create_directories(place());
    addModel(u"Contrato de arras.rtf", u"Arras penitenciales, dos ejemplares", u"1, 1");
    addModel(u"Encargo de venta.rtf", u"Con exclusiva de seis meses", u"1, Null");
    addModel(u"Petición de nota simple.rtf", u"Al registro de la propiedad", u"4, 10");
    addModel(u"Recibí de llaves.rtf", u"");
  }

  // `keys` are those of its subject and of its part.
  void addModel(TextView name, TextView text, TextView keys = u"Null, Null") {
    addRow(name, text, keys);
    std::ofstream(place() / toUtf8(name)) << toUtf8(name) << ": " << toUtf8(text);
  }
  void addRow(TextView name, TextView text, TextView keys = u"Null, Null") {
    database().Execute(join(u"INSERT INTO Plantilla (Nombre, Notas, IdMateria, IdTipoMateria) VALUES (",
                            ComillaSQL(name), u", ", ComillaSQL(text), u", ", keys, u")"));
  }

  std::filesystem::path place() const { return workplace.agency.documents / "Plantillas"; }
  bool isThere(TextView name) const { return std::filesystem::exists(place() / toUtf8(name)); }
  std::string content(TextView name) const { return contentOf(place() / toUtf8(name)); }
  static std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      if (entry.is_regular_file()) files.push_back(entry.path());
    return files;
  }

  std::int32_t models() { return one(u"SELECT COUNT(*) FROM Plantilla").toLong(); }
  std::int32_t modelsCalled(TextView name) {
    return one(u"SELECT COUNT(*) FROM Plantilla WHERE Nombre = " + ComillaSQL(name)).toLong();
  }
  Variant ofModel(TextView name, TextView column) {
    return one(join(u"SELECT ", column, u" FROM Plantilla WHERE Nombre = ", ComillaSQL(name)));
  }

  // What the agency's status bar says.
  Text status() const { return getMember(panel(), u"Text").text(); }
  void setStatus(TextView text) { putMember(panel(), u"Text", text); }

 private:
  ObjectRef panel() const {
    return getMember(getMember(desk.frmBase, u"StatusBar1").toObject(), u"Panels", {1}).toObject();
  }
};

}  // namespace ovalia::host
