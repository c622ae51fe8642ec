#pragma once

#include <filesystem>
#include <span>

#include "host/Schema.h"
#include "platform/dao.h"

namespace ovalia::host {

// A second workplace on the database of a tour: it says what the file holds, and writes into it behind the
// first one's back.
class TourWitness {
 public:
  explicit TourWitness(const std::filesystem::path& file);

  std::int32_t count(TextView query);   // rows that the query gives
  std::int32_t newest(TextView table);  // the highest key of an annotation table, 0 without rows
  bool has(TextView table, std::int32_t key);
  Text value(TextView table, std::int32_t key, TextView field);

  // The first field of the first row that a query gives; Null without rows.
  Variant answer(TextView query);

  // "NotaIP 12: Asunto «Llaves», Notas «...», FechaActualizacion «04/02/2025 14:49:08»"
  Text row(TextView table, std::int32_t key, std::span<const TextView> fields);

  // Of each attachment of an annotation, by its key: "IdDocu 3: Id 1, «Plano.pdf», fichero 1F00.pdf".
  std::vector<Text> attachments(TextView table, std::int32_t annotation);

  // Writes one field and the stamp of the last change.
  void write(TextView table, std::int32_t key, TextView field, TextView text, Date stamp);

 private:
  dao::RecordsetRef rowOf(TextView table, std::int32_t key);

  dao::DatabaseRef database_;
};

}  // namespace ovalia::host
