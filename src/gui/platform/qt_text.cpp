#include "gui/platform/qt_text.h"

#include "core/platform/path_text.h"
#include "core/platform/text.h"

#include <QDir>

namespace bramblet {
namespace {

QString toQString(const std::u16string& text) {
    return QString::fromStdU16String(text);
}

std::string coded(const QString& text) {
    return fromUnicode(text.normalized(QString::NormalizationForm_C).toStdU16String());
}

}  // namespace

QString toQt(const std::string& text) {
    return toQString(toUnicode(text));
}

std::string fromQt(const QString& text) {
    return withoutControls(coded(text));
}

QString linesToQt(const std::string& text) {
    return toQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string linesFromQt(const QString& text) {
    QStringList lines = text.split(QLatin1Char('\n'));
    std::string out = fromQt(lines.takeFirst());
    for (const QString& line : lines)
        out += "\r\n" + fromQt(line);
    return out;
}

QString pathToQt(const std::filesystem::path& path) {
    return toQString(unicodeOf(path));
}

std::filesystem::path pathFromQt(const QString& text) {
    const QByteArray utf8 = QDir::toNativeSeparators(text).toUtf8();
    return std::u8string(utf8.begin(), utf8.end());
}

QString messageToQt(const std::string& message) {
    return toQString(messageToUnicode(message)).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace bramblet
