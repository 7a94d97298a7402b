#include "platform/qt_text.h"

#include "platform/text.h"

#include <QDir>

namespace bramblet {
namespace {

QString toQString(const std::u16string& text) {
    return QString::fromStdU16String(text);
}

}  // namespace

QString toQt(const std::string& text) {
    return toQString(toUnicode(text));
}

std::string fromQt(const QString& text) {
    return fromUnicode(text.normalized(QString::NormalizationForm_C).toStdU16String());
}

QString linesToQt(const std::string& text) {
    return toQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string linesFromQt(const QString& text) {
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return fromQt(lines.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

QString pathToQt(const std::string& path) {
    return toQString(pathToUnicode(path)).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string pathFromQt(const QString& path) {
    return pathFromUnicode(QDir::toNativeSeparators(path).toStdU16String());
}

}  // namespace bramblet
