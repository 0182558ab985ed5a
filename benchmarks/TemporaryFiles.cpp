#include "benchmarks/TemporaryFiles.h"

#include <QTemporaryDir>

#include <stdexcept>

namespace orvan::bench {

const std::filesystem::path& temporaryFiles()
{
    static const QTemporaryDir directory(QStringLiteral("/var/tmp/orvan-bench-XXXXXX"));
    static const std::filesystem::path path = directory.path().toStdString();
    if (!directory.isValid()) {
        throw std::runtime_error("no temporary folder can be made: " + directory.errorString().toStdString());
    }
    return path;
}

} // namespace orvan::bench
