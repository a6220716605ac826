#include "platform/Writable.h"

#include <unistd.h>

namespace korvex {

bool isWritable(const std::string& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

}  // namespace korvex
