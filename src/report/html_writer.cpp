#include "report/html_writer.h"

namespace report {

void beginPage(HtmlWriter& html, std::string_view kind, std::string_view title,
               const std::string& moreStyle) {
  html.raw(
          "<!DOCTYPE html>\n<html lang=\"es\">\n<head>\n<meta charset=\"utf-8\">\n"
          "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
          "style-src 'unsafe-inline'; img-src data:; base-uri 'none'; form-action 'none'\">\n"
          "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
          "<meta name=\"color-scheme\" content=\"light dark\">\n<title>")
      .text(kind)
      .raw(": ")
      .text(title)
      .raw("</title>\n<style>\n")
      .style(pageStyle() + moreStyle)
      .raw("</style>\n</head>\n<body>\n<header>\n<h1>")
      .text(title)
      .raw("</h1>\n");
}

void endPage(HtmlWriter& html, std::string_view program, std::string_view sentence) {
  html.raw("</main>\n<footer><p class=\"tenue\">")
      .text(program)
      .raw(". ")
      .text(sentence)
      .raw("</p></footer>\n</body>\n</html>\n");
}

void addFigure(HtmlWriter& html, std::string_view name, std::string_view value) {
  html.raw("<div><dt>").text(name).raw("</dt><dd>").text(value).raw("</dd></div>\n");
}

void HtmlTable::writeRow(HtmlWriter& html, const std::vector<std::string>& cells) const {
  html.raw("<tr>");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i == 0) {
      html.raw("<th scope=\"row\">").text(cells[i]).raw("</th>");
    } else if (i >= firstNumber_) {
      html.raw("<td class=\"num\">").text(cells[i]).raw("</td>");
    } else {
      html.raw("<td>").text(cells[i]).raw("</td>");
    }
  }
  html.raw("</tr>\n");
}

void HtmlTable::write(HtmlWriter& html) const {
  html.raw("<section class=\"tabla\" tabindex=\"0\" aria-label=\"").text(caption_).raw("\">\n");
  heads_.size() > 6 ? html.raw("<table class=\"ancha\">") : html.raw("<table>");
  html.raw("\n<caption>").text(caption_).raw("</caption>\n<thead><tr>");
  for (std::size_t i = 0; i < heads_.size(); ++i) {
    if (i >= firstNumber_) {
      html.raw("<th scope=\"col\" class=\"num\">");
    } else {
      html.raw("<th scope=\"col\">");
    }
    html.text(heads_[i]).raw("</th>");
  }
  html.raw("</tr></thead>\n<tbody>\n");
  for (const auto& cells : rows_) writeRow(html, cells);
  html.raw("</tbody>\n");
  if (!total_.empty()) {
    html.raw("<tfoot>\n");
    writeRow(html, total_);
    html.raw("</tfoot>\n");
  }
  html.raw("</table>\n</section>\n");
}

std::string pageStyle() {
  return drawingStyle(SvgPlace::kInPage) +
         R"css(:root{--tinta:#1c1b19;--papel:#fff;--tenue:#5b574f;--raya:#c9c4b8;
--fondo:#f6f4ef;--tono1:#f4f1ea;--tono2:#d9d4c8;--tono3:#b4aea0;--hueco:#4a6c8c;--falta:#a1260d;--enlace:#1f5f8b}
@media screen and (prefers-color-scheme:dark){:root{--tinta:#eae6dd;--papel:#1b1d1f;--tenue:#b3ada1;--raya:#4a4c4e;
--fondo:#26292b;--tono1:#34373a;--tono2:#4b4f53;--tono3:#3f4347;--hueco:#7fb2dc;--falta:#ff9b85;--enlace:#8fc4ee}}
*{box-sizing:border-box}
body{margin:0 auto;padding:1.5rem 1rem 4rem;max-width:62rem;background:var(--papel);color:var(--tinta);
font:16px/1.5 Arial,"Liberation Sans",sans-serif}
h1{font-size:1.7rem;line-height:1.2;margin:0 0 .3rem;overflow-wrap:anywhere}
h2{font-size:1.3rem;margin:2.6rem 0 .6rem;padding-top:.5rem;border-top:2px solid var(--tinta)}
h3{font-size:1.05rem;margin:1.6rem 0 .4rem}
p{margin:.4rem 0;max-width:46rem}
.entrada{font-size:1.1rem}
.tenue,.nota{color:var(--tenue);font-size:.9rem}
.falta{border-left:.4rem solid var(--falta);padding:.2rem 0 .2rem 1rem;margin:1rem 0}
.falta strong{color:var(--falta)}
a{color:var(--enlace)}
nav ul{display:flex;flex-wrap:wrap;gap:.2rem 1.2rem;list-style:none;padding:0;margin:.8rem 0}
.cifras{display:grid;grid-template-columns:repeat(auto-fit,minmax(8rem,1fr));gap:.8rem 1rem;margin:1.2rem 0;padding:0}
.cifras div{border-top:1px solid var(--raya);padding-top:.3rem}
.cifras dt{color:var(--tenue);font-size:.85rem}
.cifras dd{margin:0;font-size:1.25rem}
figure{margin:1.2rem 0;break-inside:avoid}
figcaption{margin:.3rem 0;max-width:46rem}
.lienzo{overflow-x:auto}
.lienzo svg{display:block;height:auto}
.ajusta svg{width:100%;max-width:42rem}
.alzados{display:flex;flex-wrap:wrap;gap:.4rem 2rem;align-items:flex-start}
.alzados figure{width:min-content;min-width:min(100%,15rem);max-width:100%;margin:.6rem 0}
.tabla{overflow-x:auto;margin:.8rem 0}
table{border-collapse:collapse;font-size:.92rem;min-width:min(100%,30rem)}
.ancha{min-width:52rem}
caption{text-align:left;font-weight:bold;padding:.3rem 0}
th,td{text-align:left;padding:.28rem .9rem .28rem 0;border-bottom:1px solid var(--raya);vertical-align:top;
overflow-wrap:break-word}
th{font-weight:normal}
thead th{color:var(--tenue);font-size:.85rem;vertical-align:bottom;border-bottom:1px solid var(--tinta)}
tfoot th,tfoot td{font-weight:bold;border-bottom:0}
.num{text-align:right;white-space:nowrap;font-variant-numeric:tabular-nums}
code{font-family:"DejaVu Sans Mono",Consolas,monospace;font-size:.88em;overflow-wrap:anywhere}
@page{size:A4;margin:12mm 9mm}
@media print{body{font-size:10.5pt;max-width:none;padding:0}a{color:inherit;text-decoration:none}nav{display:none}
.pagina{break-before:page}h2,h3,caption,thead{break-after:avoid}tr{break-inside:avoid}
.ancha{min-width:0}.lienzo,.tabla{overflow:visible}.tabla{break-inside:avoid}.ajusta svg{width:auto;max-width:125mm;max-height:92mm}
.nota{break-before:avoid}.alzados{gap:0 8mm}.alzados figure{margin:1mm 0}.alzados figcaption{font-size:9pt;line-height:1.3}
h1{font-size:18pt}h2{font-size:14pt;margin-top:7mm}.cifras{margin:3mm 0}figure{margin:3mm 0}table{font-size:9pt}th,td{padding:.5mm 3mm .5mm 0}
*{-webkit-print-color-adjust:exact;print-color-adjust:exact}}
)css";
}

}  // namespace report
