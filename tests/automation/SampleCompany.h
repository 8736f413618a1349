// Books of a few rows, made for one test.
#pragma once

#include <string>

#include "session/books/Schema.h"
#include "tests/books/BooksOnDisk.h"

namespace pstolvane1::automation {

// Two ledgers that can be listed and one that never is, one sale bill for each of the two, and one
// priced item.
class SampleCompany {
 public:
  SampleCompany() {
    books::test::Database database(File());
    database.Execute(books::SqliteSchema());
    database.Execute(
        "insert into SubgroupName1 (Subgroup_id, SubgroupName, Code) values"
        " (1, 'Customers', 1), (33, 'Hidden', 1);"
        "insert into LedgerNames1 (Ledger_id, LedgerName, Subgroup_id, Pin, YearOfCreation) values"
        " (1, 'Asha Motors', 1, '411001', 1), (2, 'Bharat Traders', 1, '411002', 1),"
        " (3, 'Never listed', 33, '411003', 1);"
        "insert into Vouchertype1 (Vouchertype_id, Vouchertype, RelatedTo, SubRelatedTo) values"
        " (10, 'Sale', 10, 10);"
        "insert into Desr1 (Desr_id, Date, Vouchertype_id, Ledger_id, TotalAmount, Optional,"
        " Deleted, YearNo) values (1, '2003-06-01', 10, 2, 1500.50, 0, 0, 1),"
        " (2, '2003-07-01', 10, 1, 250, 0, 0, 1);"
        "insert into Items1 (Item_id, ItemName, ItemCategory_id, ItemClass_id, ConsiderForSih)"
        " values (5, 'Clutch plate', 1, 1, 1);"
        "insert into ItemCategory1 (ItemCategory_id, CategoryName, Deleted) values"
        " (1, 'Parts', 0);"
        "insert into ItemClass1 (ItemClass_id, ClassName, Deleted) values (1, 'Fast', 0);"
        "insert into PriceListDiscount1 (Item_id, Price1, Price2, Price3, Price4, Price5, Price6)"
        " values (5, 1, 2, 3, 4, 5, 6);");
  }
  [[nodiscard]] std::string File() const { return folder_.File("company.db"); }

 private:
  books::test::Folder folder_;
};

}  // namespace pstolvane1::automation
