#pragma once
// What every command of vorimesk-cli shares: the global options and the data
// folder they resolve to.

#include <filesystem>
#include <optional>
#include <string>

namespace vorimesk::cli {

struct ContextoCli {
    std::optional<std::string> datos; // --datos DIR

    // The data folder, resolved (and created) on first use; throws
    // ErrorArchivo when it cannot be.
    const std::filesystem::path& Carpeta();

private:
    std::optional<std::filesystem::path> carpeta_;
};

} // namespace vorimesk::cli
