#include "core/platform/fault.h"

namespace bramblet {

std::string describe(FaultNumber number) {
    switch (number) {
        case FaultNumber::Overflow:
            return "Overflow";
        case FaultNumber::TypeMismatch:
            return "Type mismatch";
        case FaultNumber::BadFileName:
            return "Bad file name or number";
        case FaultNumber::FileNotFound:
            return "File not found";
        case FaultNumber::DeviceError:
            return "Device I/O error";
        case FaultNumber::DiskFull:
            return "Disk full";
        case FaultNumber::PastEndOfFile:
            return "Input past end of file";
        case FaultNumber::BadRecordNumber:
            return "Bad record number";
        case FaultNumber::TooManyFiles:
            return "Too many files";
        case FaultNumber::PermissionDenied:
            return "Permission denied";
        case FaultNumber::PathFileAccess:
            return "Path/File access error";
        case FaultNumber::PathNotFound:
            return "Path not found";
    }
    return "Unknown error";
}

std::string Fault::inWords() const {
    return description() + " (error " + std::to_string(code()) + ")";
}

std::string FileTooLong::inWords() const {
    return "the file is damaged, it is " + std::to_string(length_) + " bytes long";
}

std::string BoxFault::inWords() const {
    return "\"" + text_ + "\" in the box " + box_ + " " + complaint_;
}

}  // namespace bramblet
