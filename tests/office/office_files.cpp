// Writes files of office programs into a folder, for check_office.py to open with readers of others.

#include <cstdio>
#include <string>

#include "data/data_file.h"
#include "platform/files.h"
#include "platform/scripted_platform.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_export.h"

namespace tessara {
namespace {

// A table with two label columns, three columns of data and an empty row.
TableGrid Table() {
  TableGrid grid;
  const char* rows[][5] = {{"Smokers", "", "   All", "Male", "Female"},
                           {"", "", "", "", ""},
                           {"Total Count", "", "1,200", "500", "700"},
                           {"K\xF6ln", "Percent", " 12.50", "-3.0", "7,5"},
                           {"=SUM(A1)", "Count", "007", "12345678901234567890", "5%"}};
  for (std::size_t row = 0; row < 5; ++row) {
    for (std::size_t column = 0; column < 5; ++column) grid.SetText(row + 1, column + 1, rows[row][column]);
  }
  grid.Edit(1, 4).alignment = TableAlignment::kCentre;
  return grid;
}

// Three records of two variables; cells of a file are texts, the last one has been computed.
DataSet Data(const Path& folder, Platform& platform) {
  const Path file = folder / "data.dcs";
  std::string content = "3 2 Tessara data\x01\r\n";
  for (int row = 1; row <= 14; ++row) content += "\x01\r\n";
  content += "CODE\x01K\xD6LN\r\n007\x01=1+1\r\n2.50\x01\r\n11/5/2026\x01\x02\r\n";
  WriteWholeFile(file, content);
  DataSet data;
  LoadDataFile(data, platform, file, FilePick::kPicked);
  return data;
}

// Every byte, in lines and cells, and what a document takes for its own.
std::string HostileText() {
  std::string text = "<b>bold</b> &amp; ]]> \"quoted\" _x000D_\r\n";
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '\r' && byte != '\n') text += static_cast<char>(byte);
  }
  return text + "\r\nx\x01y<Page Break>z\r\n=cmd|' /C calc'!A0";
}

bool WriteAll(const Path& folder) {
  ScriptedPlatform platform;
  const TableGrid table = Table();
  const DataSet data = Data(folder, platform);
  const std::vector<ChartPicture> no_pictures;
  return TableToWord(table, no_pictures, folder / "table.docx", platform) &&
         TableToExcel(table, folder / "table.xlsx", platform) && DataToExcel(data, folder / "data.xlsx", platform) &&
         DataToExcel(data, folder / "parts.xlsx", platform, 0, {.rows = 3, .columns = 1, .characters = 4}) &&
         PrintToWord(HostileText(), no_pictures, folder / "hostile.docx", platform) &&
         PrintToExcel(HostileText(), folder / "hostile.xlsx", platform) &&
         PrintToExcel("abcdefghij\tk\r\n1\t2\t3", folder / "limits.xlsx", platform,
                      {.rows = 10, .columns = 2, .characters = 6});
}

}  // namespace
}  // namespace tessara

int main(int argument_count, char** arguments) {
  if (argument_count != 2 || !tessara::WriteAll(arguments[1])) {
    std::fprintf(stderr, "the files could not be written\n");
    return 1;
  }
  return 0;
}
