#include "VantryCore/persistence/VantryError.h"

namespace vantry {

const char* VantryError::what() const noexcept {
    switch (kind) {
    case Case::invalidBackup:
        return "备份格式或校验不正确 / Invalid backup or checksum";
    case Case::missingMedia:
        return "图片文件缺失 / Missing image file";
    case Case::tooLarge:
        break;
    }
    return "文件过大（备份上限 200 MB，单张图片 25 MB） / File exceeds size limit";
}

std::string localizedDescription(const std::exception& failure) {
    if (dynamic_cast<const DecodingError*>(&failure) != nullptr)
        return std::string("数据无法读取 / The data could not be read\n") + failure.what();
    return failure.what();
}

}  // namespace vantry
