#include "core/platform/fault.h"

#include <utility>

namespace bramblet {
namespace {

constexpr std::pair<FaultNumber, const char*> kDescriptions[]{
    {FaultNumber::Overflow, "Overflow"},
    {FaultNumber::TypeMismatch, "Type mismatch"},
    {FaultNumber::BadFileName, "Bad file name or number"},
    {FaultNumber::FileNotFound, "File not found"},
    {FaultNumber::DeviceError, "Device I/O error"},
    {FaultNumber::DiskFull, "Disk full"},
    {FaultNumber::PastEndOfFile, "Input past end of file"},
    {FaultNumber::BadRecordNumber, "Bad record number"},
    {FaultNumber::TooManyFiles, "Too many files"},
    {FaultNumber::PermissionDenied, "Permission denied"},
    {FaultNumber::PathFileAccess, "Path/File access error"},
    {FaultNumber::PathNotFound, "Path not found"},
};

std::string describe(FaultNumber number) {
    for (const auto& [known, description] : kDescriptions) {
        if (known == number) return description;
    }
    return "Unknown error";
}

}  // namespace

Fault::Fault(FaultNumber number, std::string words)
    : std::runtime_error(describe(number)), number_(number), words_(std::move(words)) {}

std::string Fault::inWords() const {
    return words_.empty() ? description() + " (error " + std::to_string(code()) + ")" : words_;
}

FileTooLong::FileTooLong(std::filesystem::path path, std::uint64_t length)
    : FileError(FaultNumber::Overflow, std::move(path),
                "the file is damaged, it is " + std::to_string(length) + " bytes long") {}

BoxFault::BoxFault(FaultNumber number, const std::string& box, const std::string& text,
                   const std::string& complaint)
    : Fault(number, "\"" + text + "\" in the box " + box + " " + complaint) {}

}  // namespace bramblet
