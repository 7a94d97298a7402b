#include "gui/platform/qt_text.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <QDir>

namespace bramblet {

QString toQt(const std::string& text) {
    return QString::fromStdU16String(toUnicode(text));
}

std::string fromQt(const QString& text) {
    const QString composed = text.normalized(QString::NormalizationForm_C);
    return withoutControls(fromUnicode(composed.toStdU16String()));
}

std::optional<char32_t> firstLost(const QString& text) {
    const QString composed = text.normalized(QString::NormalizationForm_C);
    for (const char32_t character : charactersOf(composed.toStdU16String())) {
        const bool endsLine = character == QChar::LineSeparator;
        if (!endsLine && !byteOf(character)) return character;
    }
    return std::nullopt;
}

QString linesToQt(const std::string& text) {
    return toQt(text).replace(u"\r\n"_s, u"\n"_s);
}

std::string linesFromQt(const QString& text) {
    QStringList lines = text.split(QLatin1Char('\n'));
    std::string out = fromQt(lines.takeFirst());
    for (const QString& line : lines)
        out += "\r\n" + fromQt(line);
    return out;
}

QString pathToQt(const std::filesystem::path& path) {
    return QString::fromStdU16String(unicodeOf(path));
}

std::filesystem::path pathFromQt(const QString& text) {
    const QByteArray utf8 = QDir::toNativeSeparators(text).toUtf8();
    return std::u8string(utf8.begin(), utf8.end());
}

QString messageToQt(const std::string& message) {
    return QString::fromStdU16String(messageToUnicode(message)).replace(u"\r\n"_s, u"\n"_s);
}

}  // namespace bramblet
