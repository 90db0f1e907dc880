#include "qt/views/LabelText.h"

#include <QRegularExpression>
#include <QStringList>

namespace brenwick {
namespace {

// Punctuation behind an address is no part of the address.
const QRegularExpression& Address() {
  static const QRegularExpression address(R"(https?://[^\s<>"]*[^\s<>".,;:!?)])");
  return address;
}

QString WithLinks(const QString& text) {
  QString html;
  qsizetype done = 0;
  for (auto found = Address().globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const QString address = match.captured().toHtmlEscaped();
    html += text.mid(done, match.capturedStart() - done).toHtmlEscaped();
    html += QString("<a href=\"%1\">%1</a>").arg(address);
    done = match.capturedEnd();
  }
  return html + text.mid(done).toHtmlEscaped();
}

QString Row(const QString& name, const QString& value) {
  return QString("<tr><td style=\"padding-right: 12px\">%1</td><td>%2</td></tr>")
      .arg(name.toHtmlEscaped(), WithLinks(value.trimmed()));
}

}  // namespace

bool IsRich(const QString& caption) {
  return caption.contains('\n') || caption.contains(Address());
}

QString ToHtml(const QString& caption) {
  QStringList lines = QString(caption).remove('\r').split('\n');
  while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  QString text;
  QString rows;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QString& line = lines[i];
    if (i + 1 < lines.size() && lines[i + 1].startsWith('\t')) {
      rows += Row(line, lines[++i]);
    } else if (line.isEmpty()) {
      text += "<p style=\"margin: 0px\">&nbsp;</p>";
    } else {
      text += "<p style=\"margin: 0px 0px 4px\">" + WithLinks(line) + "</p>";
    }
  }
  if (rows.isEmpty()) return text;
  return text + "<p></p><table cellspacing=\"0\" cellpadding=\"2\">" + rows + "</table>";
}

}  // namespace brenwick
