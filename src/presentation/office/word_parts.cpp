#include "presentation/office/word_parts.h"

#include "presentation/office/office_charts.h"
#include "presentation/office/word_text.h"
#include "presentation/office/xml_text.h"

namespace tessara {
namespace {

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr const char* kPackage = "http://schemas.openxmlformats.org/package/2006/";
constexpr const char* kOffice = "http://schemas.openxmlformats.org/officeDocument/2006/";
constexpr const char* kDrawing = "http://schemas.openxmlformats.org/drawingml/2006/";
constexpr const char* kWords = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr int kUnitsOfPixel = 9525;  // of a drawing

std::string Named(const char* start, const char* end) { return std::string(start) + end; }

std::string Override(const char* part, const std::string& type) {
  return std::string("<Override PartName=\"") + part + "\" ContentType=\"application/" + type + "+xml\"/>";
}

std::string Relation(const std::string& id, const std::string& type, const std::string& target) {
  return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\"/>";
}

std::string Relations(const std::string& rows) {
  return kDeclaration + ("<Relationships xmlns=\"" + Named(kPackage, "relationships") + "\">") + rows +
         "</Relationships>";
}

std::string Extent(const char* element) {
  return std::string("<") + element + " cx=\"" + std::to_string(kChartPictureWidth * kUnitsOfPixel) + "\" cy=\"" +
         std::to_string(kChartPictureHeight * kUnitsOfPixel) + "\"/>";
}

}  // namespace

std::string WordContentTypes() {
  const std::string words = "vnd.openxmlformats-officedocument.wordprocessingml.";
  return kDeclaration + ("<Types xmlns=\"" + Named(kPackage, "content-types") + "\">") +
         "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
         "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
         "<Default Extension=\"png\" ContentType=\"image/png\"/>" +
         Override("/word/document.xml", words + "document.main") + Override("/word/styles.xml", words + "styles") +
         Override("/word/settings.xml", words + "settings") +
         Override("/docProps/core.xml", "vnd.openxmlformats-package.core-properties") +
         Override("/docProps/app.xml", "vnd.openxmlformats-officedocument.extended-properties") + "</Types>";
}

std::string WordPackageRelations() {
  return Relations(Relation("document", Named(kOffice, "relationships/officeDocument"), "word/document.xml") +
                   Relation("core", Named(kPackage, "relationships/metadata/core-properties"), "docProps/core.xml") +
                   Relation("application", Named(kOffice, "relationships/extended-properties"), "docProps/app.xml"));
}

std::string WordDocumentRelations(std::size_t pictures) {
  std::string rows = Relation("styles", Named(kOffice, "relationships/styles"), "styles.xml") +
                     Relation("settings", Named(kOffice, "relationships/settings"), "settings.xml");
  for (std::size_t i = 1; i <= pictures; ++i) {
    const std::string number = std::to_string(i);
    rows += Relation("picture" + number, Named(kOffice, "relationships/image"), "media/image" + number + ".png");
  }
  return Relations(rows);
}

// Lines stand close, as in the Output view, and nothing moves a line of a report to another page than its neighbours.
std::string WordStyles() {
  const std::string type = std::to_string(kWordType);
  return kDeclaration + ("<w:styles xmlns:w=\"" + std::string(kWords) + "\">") +
         "<w:docDefaults><w:rPrDefault><w:rPr>"
         "<w:rFonts w:ascii=\"Courier New\" w:hAnsi=\"Courier New\" w:eastAsia=\"Courier New\" w:cs=\"Courier New\"/>"
         "<w:sz w:val=\"" +
         type + "\"/><w:szCs w:val=\"" + type +
         "\"/><w:lang w:val=\"en-US\"/></w:rPr></w:rPrDefault>"
         "<w:pPrDefault><w:pPr><w:spacing w:before=\"0\" w:after=\"0\" w:line=\"240\" w:lineRule=\"auto\"/></w:pPr>"
         "</w:pPrDefault></w:docDefaults>"
         "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/><w:qFormat/>"
         "<w:pPr><w:widowControl w:val=\"0\"/></w:pPr><w:rPr><w:rFonts w:ascii=\"Courier New\" w:hAnsi=\"Courier New\" "
         "w:eastAsia=\"Courier New\" w:cs=\"Courier New\"/><w:noProof/></w:rPr></w:style>"
         "<w:style w:type=\"paragraph\" w:styleId=\"Caption\"><w:name w:val=\"caption\"/><w:basedOn w:val=\"Normal\"/>"
         "<w:qFormat/><w:pPr><w:spacing w:before=\"60\" w:after=\"240\"/></w:pPr><w:rPr><w:b/></w:rPr></w:style>"
         "</w:styles>";
}

std::string WordSettings() {
  constexpr int kTabStop = 8 * 6 * kWordType;  // eight characters
  return kDeclaration + ("<w:settings xmlns:w=\"" + std::string(kWords) + "\">") + "<w:defaultTabStop w:val=\"" +
         std::to_string(kTabStop) +
         "\"/><w:compat><w:compatSetting w:name=\"compatibilityMode\" "
         "w:uri=\"http://schemas.microsoft.com/office/word\" w:val=\"15\"/></w:compat></w:settings>";
}

std::string WordCoreProperties() {
  return kDeclaration + ("<cp:coreProperties xmlns:cp=\"" + Named(kPackage, "metadata/core-properties") + "\" ") +
         "xmlns:dc=\"http://purl.org/dc/elements/1.1/\"><dc:title>Tessara output</dc:title>"
         "<dc:creator>Tessara</dc:creator></cp:coreProperties>";
}

std::string WordApplicationProperties() {
  return kDeclaration + ("<Properties xmlns=\"" + Named(kOffice, "extended-properties") + "\">") +
         "<Application>Tessara</Application></Properties>";
}

std::string WordTextStart() {
  return kDeclaration + ("<w:document xmlns:w=\"" + std::string(kWords) + "\" xmlns:r=\"") +
         Named(kOffice, "relationships") + "\" xmlns:wp=\"" + Named(kDrawing, "wordprocessingDrawing") +
         "\" xmlns:a=\"" + Named(kDrawing, "main") + "\" xmlns:pic=\"" + Named(kDrawing, "picture") + "\"><w:body>";
}

std::string WordTextEnd(const WordPage& page) {
  const std::string margin = std::to_string((page.width - page.TextWidth()) / 2);
  return "<w:sectPr><w:pgSz w:w=\"" + std::to_string(page.width) + "\" w:h=\"" + std::to_string(page.height) + "\"" +
         (page.is_landscape ? " w:orient=\"landscape\"" : "") + "/><w:pgMar w:top=\"" + margin + "\" w:right=\"" +
         margin + "\" w:bottom=\"" + margin + "\" w:left=\"" + margin +
         "\" w:header=\"360\" w:footer=\"360\" w:gutter=\"0\"/></w:sectPr></w:body></w:document>";
}

std::string WordPicture(std::size_t number, const std::string& title) {
  const std::string id = std::to_string(number);
  const std::string described = "id=\"" + id + "\" name=\"Chart " + id + "\" descr=\"" + XmlText(title) + "\"/>";
  return "<w:p><w:pPr><w:keepNext/></w:pPr><w:r><w:drawing><wp:inline distT=\"0\" distB=\"0\" distL=\"0\" "
         "distR=\"0\">" +
         Extent("wp:extent") + "<wp:docPr " + described +
         "<wp:cNvGraphicFramePr><a:graphicFrameLocks noChangeAspect=\"1\"/></wp:cNvGraphicFramePr>"
         "<a:graphic><a:graphicData uri=\"" +
         Named(kDrawing, "picture") + "\"><pic:pic><pic:nvPicPr><pic:cNvPr " + described +
         "<pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed=\"picture" + id +
         "\"/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/>" +
         Extent("a:ext") +
         "</a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic>"
         "</wp:inline></w:drawing></w:r></w:p><w:p><w:pPr><w:pStyle w:val=\"Caption\"/></w:pPr><w:r>"
         "<w:t xml:space=\"preserve\">" +
         XmlText(title) + "</w:t></w:r></w:p>";
}

}  // namespace tessara
