#pragma once

#include <cstddef>
#include <string>

#include "data/data_set.h"
#include "data/field_ends.h"
#include "numerics/number_text.h"
#include "platform/safe_file_writer.h"

// Writes rows of the data as lines of a text file.

namespace tessara {

class LineWriter {
 public:
  // Columns 1 to `variables`, with the separator between them.
  LineWriter(const DataSet& data, std::size_t variables, SafeFileWriter& file, char separator = kFieldSeparator);

  void Write(std::size_t row);

 private:
  const DataSet& data_;
  SafeFileWriter& file_;
  const std::size_t variables_;
  const std::size_t loaded_columns_;  // that still stand as they were loaded: they are copied in one stretch
  const char separator_;
  std::string line_;
  NumberBuffer buffer_{};
};

}  // namespace tessara
