#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/Schema.h"
#include "platform/Variant.h"

// The made-up agency: the same rows, to the letter, whenever and wherever it is made.
namespace ovalia::host {

// Where rows go, table by table in the order of the schema.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void begin(const Table& table) = 0;
  virtual void add(std::span<const Variant> values) = 0;  // in the order of the table's columns
};

inline constexpr int sampleAnnotations = 2500;
inline constexpr int sampleProperties = 300;
inline constexpr int sampleClients = 40;
inline constexpr int deletedSalesperson = 99;  // a number that no user has

// Fills the look-up tables, the parents and that many annotations over all kinds. The first property, the
// first case file and the first user have some of every kind that they can have.
void makeSample(RowSink& sink, int annotations);

// The documents that the sample's attachment rows and models name, and its templates.
struct SampleFile {
  Text path;  // under the user's data folder, "\"-separated
  std::string content;
};
std::vector<SampleFile> sampleFiles();

}  // namespace ovalia::host
