#include "desktop/captions.h"

namespace pgbp {
namespace {

struct Reading {
    QString plain;
    qsizetype marked = -1; ///< place of the marked letter in `plain`
};

Reading Read(const std::string& caption)
{
    Reading reading;
    const QString text = Text(caption);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isMark = text[i] == '&' && i + 1 < text.size() && !text[i + 1].isSpace();
        if (isMark && text[++i] != '&')
            reading.marked = reading.plain.size();
        reading.plain += text[i];
    }
    return reading;
}

} // namespace

QString PlainCaption(const std::string& caption) { return Read(caption).plain; }

QString MarkedCaption(const std::string& caption, char letter)
{
    const auto [plain, marked] = Read(caption);
    const qsizetype found = marked >= 0 ? marked : plain.indexOf(QLatin1Char(letter), 0, Qt::CaseInsensitive);
    const qsizetype at = letter == 0 ? -1 : found;
    QString shown;
    for (qsizetype i = 0; i < plain.size(); ++i) {
        if (i == at || plain[i] == '&')
            shown += '&';
        shown += plain[i];
    }
    return shown;
}

} // namespace pgbp
