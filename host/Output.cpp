#include "host/Output.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>
#include <unistd.h>

#include "host/Terminal.h"
#include "host/TextTable.h"
#include "session/rowset/Export.h"
#include "session/rowset/Locale.h"
#include "session/rowset/ReportView.h"

namespace pstolvane1::host {
namespace {

Error CannotWrite(const std::string& path, int reason) {
  return {ErrorNumber::kArgumentOutOfRange,
          "cannot write \"" + path + "\": " + std::generic_category().message(reason)};
}

// A file beside the one that is wanted, or that a link leads to; it takes that one's name at the
// end, or goes. A device or a pipe is written into as it is.
class FileInMaking {
 public:
  explicit FileInMaking(const std::string& path) : path_(path) {
    std::error_code ignored;
    const auto kind = std::filesystem::status(path, ignored).type();
    using enum std::filesystem::file_type;
    done_ = kind != regular && kind != directory && std::filesystem::exists(path, ignored);
    if (kind == regular) path_ = std::filesystem::canonical(path, ignored).string();
    making_ = done_ ? path_ : path_ + "." + std::to_string(getpid()) + ".tmp";
  }
  FileInMaking(const FileInMaking&) = delete;
  FileInMaking& operator=(const FileInMaking&) = delete;
  ~FileInMaking() {
    if (!done_) std::remove(making_.c_str());
  }
  [[nodiscard]] const std::string& Path() const { return making_; }
  void Done() {
    if (done_) return;
    if (std::rename(making_.c_str(), path_.c_str()) != 0) throw CannotWrite(path_, errno);
    done_ = true;
  }

 private:
  std::string path_;
  std::string making_;
  bool done_ = false;
};

void WriteStream(const OutputOptions& options, const std::function<void(std::ostream&)>& write) {
  if (options.path.empty()) {
    write(std::cout);
    std::cout.flush();
    return;
  }
  FileInMaking file(options.path);
  errno = 0;
  std::ofstream out(file.Path(), std::ios::binary);
  if (out) write(out);
  out.close();
  if (!out) throw CannotWrite(options.path, errno == 0 ? EIO : errno);
  file.Done();
}

}  // namespace

void Write(const Recordset& rowset, std::string_view title, const OutputOptions& options,
           const std::function<std::string()>& json) {
  const auto locale = Locale::Get(options.locale);
  switch (options.format) {
    case Format::kTable: {
      std::ostringstream table;
      WriteTable(ReportView(rowset, locale), options.path.empty() && StandardOutputIsTerminal(),
                 table);
      WriteText(table.str(), options);
      return;
    }
    case Format::kCsv:
      return WriteStream(options, [&rowset](std::ostream& out) { ExportCsv(rowset, out); });
    case Format::kJson:
      return WriteStream(options, [&json](std::ostream& out) { out << json() << '\n'; });
    case Format::kHtml:
      return WriteStream(options,
                         [&](std::ostream& out) { ExportHtml(rowset, title, locale, out); });
    case Format::kXlsx: {
      if (options.path.empty()) {
        throw Error(ErrorNumber::kArgumentOutOfRange,
                    "a workbook goes into a file: name it with --out");
      }
      FileInMaking file(options.path);
      ExportXlsx(rowset, title, locale, file.Path());
      file.Done();
      return;
    }
  }
}

void WriteText(std::string_view text, const OutputOptions& options) {
  if (options.path.empty()) {
    Show(std::string(text));
  } else {
    WriteStream(options, [text](std::ostream& out) { out << text; });
  }
}

}  // namespace pstolvane1::host
