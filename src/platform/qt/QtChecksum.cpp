#include "platform/qt/QtChecksum.h"

#include <QCryptographicHash>

namespace korvex {

std::string sha256(std::string_view wire) {
    const auto data = QByteArrayView(wire.data(), static_cast<qsizetype>(wire.size()));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(data.toByteArray());
    return hash.result().toHex().toStdString();
}

}  // namespace korvex
