// A statement for each participant, as PDF files in one folder.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/records.h"
#include "engine/projection.h"
#include "output/report/report_templates.h"
#include "shell/application.h"
#include "statements/columns.h"

namespace kelvar {

// Names of statements in a folder that are not newer than all that they would be made of: once all are
// made, they belong to no line of the table, or to one that is refused now.
std::vector<std::string> older_statements(const std::filesystem::path& folder,
                                          const std::filesystem::path& program_folder,
                                          const std::filesystem::path& table);

class StatementPdfs {
public:
    struct Wanted {
        std::filesystem::path program_folder;
        std::filesystem::path folder;  // there already
        PrintedParts parts{.payments = false};
        bool keep_newer = false;  // than all that it is made of, and of today
        std::filesystem::path table{};
    };

    // At most one in a process, which has no window.
    explicit StatementPdfs(Wanted wanted);

    // The pages at one rate after the other, in a file named after participant and line. None when
    // nothing is paid at any rate. Throws PrintError and FileError.
    void write(const Participant& participant, const std::vector<Projection>& projections,
               Database& database) const;

private:
    bool is_kept(const std::filesystem::path& file, Date today) const;

    Wanted wanted_;
    std::unique_ptr<Application> application_;
    std::filesystem::file_time_type newest_;  // of what the statements are made of
};

}  // namespace kelvar
