#include "window/output/fixed_pitch_html.h"

namespace tessara {

// Word processors differ in what they heed: the element, its style, or the font of the words inside.
QString FixedPitchHtml(const QString& text) {
  return "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\"></head><body>"
         "<pre style=\"font-family:'Courier New','Liberation Mono',monospace;font-size:10pt;white-space:pre\">"
         "<font face=\"Courier New, Liberation Mono, monospace\">" +
         text.toHtmlEscaped() + "</font></pre></body></html>";
}

}  // namespace tessara
