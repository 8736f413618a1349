// stolvane reports: what can be asked for.
#pragma once

#include <string>

namespace pstolvane1::host {

// Every operation in JSON, with arguments, types and defaults.
void ListReportsAsJson();
// One line for each operation that this version builds, family by family.
void ListReports();
// One operation with its arguments. WrongCall for an unknown one.
void DescribeReport(const std::string& operation);

}  // namespace pstolvane1::host
