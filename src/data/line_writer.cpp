#include "data/line_writer.h"

#include <algorithm>

namespace tessara {

LineWriter::LineWriter(const DataSet& data, std::size_t variables, SafeFileWriter& file, char separator)
    : data_(data),
      file_(file),
      variables_(variables),
      loaded_columns_(std::min(data.matrix.LoadedColumns(), variables)),
      separator_(separator) {}

void LineWriter::Write(std::size_t row) {
  line_.clear();
  std::size_t column = 1;
  if (loaded_columns_ > 0) {
    if (const auto fields = data_.matrix.LoadedLine(row, loaded_columns_)) {
      line_.append(*fields);
      if (separator_ != kFieldSeparator) std::replace(line_.begin(), line_.end(), kFieldSeparator, separator_);
      column = loaded_columns_ + 1;
    }
  }
  for (; column <= variables_; ++column) {
    if (column > 1) line_.push_back(separator_);
    line_.append(TextOf(data_.matrix.Cell(row, column), buffer_));
  }
  line_.append("\r\n");
  file_.Write(line_);
}

}  // namespace tessara
