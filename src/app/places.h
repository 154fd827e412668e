#pragma once

#include <filesystem>

#include "odbc/own_sources.h"

namespace orvent::app {

/// Where this user's files lie.
struct Places {
    std::filesystem::path data;      ///< the program's folder: repository, script, help, LDLS and Logs
    std::filesystem::path settings;  ///< the file of stored settings
    std::filesystem::path states;    ///< unsaved work and earlier states of scenarios

    std::filesystem::path sample() const { return data / "bookshop.db"; }
    std::filesystem::path repository() const { return data / "repository.db"; }

    /// The databases of the program's own that lie there.
    odbc::OwnSources sources() const;

    /// The usual folders of the system. The environment variable ORVENT_HOME puts everything into one folder, for
    /// portable use. Throws a `Fault` when the environment names no home: nothing is put into the current folder.
    static Places ofUser();
    static Places in(const std::filesystem::path& folder) {
        return {folder, folder / "Mapflow.conf", folder / "states"};
    }
};

}  // namespace orvent::app
