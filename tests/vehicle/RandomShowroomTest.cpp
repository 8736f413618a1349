// What must hold of the searches, the buyers, the transport office's list and the service tax, on
// random books.
#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "RandomShowroom.h"
#include "session/clsStolvane1.h"
#include "session/data/MessageLoop.h"

namespace pstolvane1 {
namespace {

constexpr std::uint32_t kBooks = 12;

// A vehicle's movement as a search finds it: its chassis, the type, what is owed.
struct Finding {
  std::string chassis;
  int type = 0;
  Currency pending;

  friend auto operator<=>(const Finding&, const Finding&) = default;
  friend void PrintTo(const Finding& finding, std::ostream* to) {
    *to << finding.chassis << ' ' << finding.type << ' ' << Variant(finding.pending).ToText();
  }
};
using Findings = std::multiset<Finding>;

class Session {
 public:
  explicit Session(const Showroom& showroom) {
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", showroom.books->ConnectionString(), False);
    session_.FetchComplete = [this](const RecordsetPtr& rowset, std::int32_t) { found_ = rowset; };
  }

  RecordsetPtr OfVehicles(const std::string& criteria) {
    session_.AutoSearch(rtAutoSearch, 1, from_, to_, criteria, False, 1, {}, 0, {}, kTypes);
    return Found();
  }
  RecordsetPtr OfBuyers(const std::string& filter) {
    session_.AutoSearch(rtAutoSearch, 1, from_, to_, {}, False, 1, filter, 0, {}, kTypes);
    return Found();
  }
  RecordsetPtr OfInsurance(const std::string& filter) {
    session_.RTOInsSearch(rtRtoInsSearch, 1, from_, to_, {}, False, 1, filter, 0, {}, kTypes);
    return Found();
  }
  RecordsetPtr Buyers() {
    RecordsetPtr items = Recordset::New();
    items->Open("select item_id as itemnew_id, itemname from items1",
                session_.GetConnectionObject());
    return session_.BuyerReport(1, from_, to_, True, False, 1, 0, items);
  }
  RecordsetPtr TransportOffice() {
    return session_.RtoSalesDetails(1, from_, to_, False).ToRowset();
  }
  RecordsetPtr Tax(Boolean detailed) {
    return session_.ServiceTax(1, from_, to_, 0, 0, False, "/", 0, True, detailed).ToRowset();
  }

 private:
  static constexpr const char* kTypes = "Vouchertype1.Relatedto in (7,10)";
  const Date from_ = Date::FromYmd(2003, 4, 1), to_ = Date::FromYmd(2004, 3, 31);

  // Searches are always fetched in the background.
  RecordsetPtr Found() {
    while (!found_) WaitForEvents(std::chrono::milliseconds(10));
    return std::exchange(found_, nullptr);
  }

  clsStolvane1 session_;
  RecordsetPtr found_;
};

template <typename Check>
void OnRandomShowrooms(Check&& check) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const Showroom showroom = RandomShowroom(seed);
    Session session(showroom);
    check(showroom, session);
  }
}

Findings Read(const RecordsetPtr& rowset) {
  Findings findings;
  const bool has_pending = rowset->HasColumn("billamountpending");
  for (const Recordset::Row row : rowset->Rows()) {
    findings.insert({row["BatchCode"].ToText(), row["GOriginalVouchertype_id"].ToInt32(),
                     has_pending ? row["billamountpending"].ToCurrency() : Currency()});
  }
  return findings;
}

TEST(RandomShowroom, AFragmentFindsThePurchaseAndTheSaleOfEachVehicleThatHasIt) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    for (const char* const fragment : {"1", "CH-2", "00", "7", "none"}) {
      Findings expected;
      for (const ShowroomVehicle& vehicle : showroom.vehicles) {
        if (vehicle.chassis.find(fragment) == std::string::npos) continue;
        expected.insert({vehicle.chassis, 7, {}});
        if (!vehicle.IsSold() || vehicle.optional) continue;
        expected.insert({vehicle.chassis, 10, vehicle.amount - vehicle.paid});
      }
      EXPECT_EQ(
          Read(session.OfVehicles("And Batches1.BatchCode Like '%" + std::string(fragment) + "%'")),
          expected)
          << fragment;
    }
  });
}

TEST(RandomShowroom, EveryFindingNamesThePurchaseBillOfItsVehicle) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    std::map<std::string, std::string> bill_of;
    for (const ShowroomVehicle& vehicle : showroom.vehicles) {
      bill_of[vehicle.chassis] = "D" + std::to_string(vehicle.purchase_number) + "-04";
    }
    const RecordsetPtr found = session.OfVehicles("");
    ASSERT_GE(found->RecordCount(), static_cast<std::int32_t>(showroom.vehicles.size()));
    for (const Recordset::Row row : found->Rows()) {
      EXPECT_EQ(row["PBillNo"].ToText(), bill_of.at(row["BatchCode"].ToText()));
    }
  });
}

TEST(RandomShowroom, BuyersAreFoundWithTheSalesThatTheirVehiclesHave) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    for (const char* const buyer : {"Rao", "Asha", "Dilip Asha", "nobody"}) {
      Findings expected, without_pending;
      for (const ShowroomVehicle& vehicle : showroom.vehicles) {
        if (vehicle.buyer.find(buyer) == std::string::npos || vehicle.optional) continue;
        expected.insert({vehicle.chassis, 10, vehicle.amount - vehicle.paid});
        without_pending.insert({vehicle.chassis, 10, {}});
      }
      const std::string filter = "Where Despatchto Like '%" + std::string(buyer) + "%'";
      EXPECT_EQ(Read(session.OfBuyers(filter)), expected) << buyer;
      EXPECT_EQ(Read(session.OfInsurance(filter)), without_pending) << buyer;
    }
  });
}

TEST(RandomShowroom, TheBuyersAddUpToTheSalesThatStand) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    std::multiset<std::string> sold;
    Currency amount;
    for (const ShowroomVehicle& vehicle : showroom.vehicles) {
      if (!vehicle.IsSold() || vehicle.deleted) continue;
      sold.insert(vehicle.buyer + ' ' + vehicle.chassis);
      amount += vehicle.amount;
    }
    std::multiset<std::string> listed;
    Currency sales;
    const RecordsetPtr report = session.Buyers();
    for (const Recordset::Row row : report->Rows()) {
      if (row["ChasisNo"].IsNull()) continue;
      listed.insert(row["Particulars"].ToText() + ' ' + row["ChasisNo"].ToText());
      sales += row["SalesSort"].ToCurrency();
    }
    EXPECT_EQ(listed, sold);
    EXPECT_EQ(sales, amount);
  });
}

TEST(RandomShowroom, TheTransportOfficeListsTheBuyersWhoseSalesAreNotFiled) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    std::multiset<std::string> unfiled, listed;
    for (const ShowroomVehicle& vehicle : showroom.vehicles) {
      if (!vehicle.IsSold() || vehicle.audited || vehicle.deleted) continue;
      unfiled.insert(vehicle.buyer + vehicle.chassis);
    }
    const RecordsetPtr list = session.TransportOffice();
    for (const Recordset::Row row : list->Rows()) {
      listed.insert(row["buyername"].ToText() + row["batchcode"].ToText());
    }
    EXPECT_EQ(listed, unfiled);
  });
}

TEST(RandomShowroom, ServiceTaxIsTheSumOfItsLinesInBothLayouts) {
  OnRandomShowrooms([](const Showroom& showroom, Session& session) {
    std::map<int, Currency> tax_of;
    Currency tax, labour;
    for (const TaxedLine& line : showroom.lines) {
      if (line.deleted) continue;
      tax_of[line.bill] += line.tax;
      tax += line.tax;
      labour += line.amount + line.tax;
    }
    for (const Boolean detailed : {False, True}) {
      std::map<int, Currency> listed;
      Currency lines;
      const RecordsetPtr report = session.Tax(detailed);
      for (const Recordset::Row row : report->Rows()) {
        if (!row["desr_id"].IsNull()) {
          listed[row["desr_id"].ToInt32()] = row["TotalServicetaxPerc"].ToCurrency();
        } else if (!row["ServicetaxPerc"].IsNull()) {
          lines += row["ServicetaxPerc"].ToCurrency();
        }
      }
      EXPECT_EQ(listed, tax_of);
      EXPECT_EQ(lines, detailed.IsSet() ? tax : Currency());
      report->MoveLast();
      EXPECT_EQ(report->Collect("GTotalTax").ToCurrency(), tax);
      EXPECT_EQ(report->Collect("GTotalLabour").ToCurrency(), labour);
    }
  });
}

TEST(RandomShowroom, TheTwinOfTaxedLabourSortsAsTheTextThatItIs) {
  bool sorts_otherwise_than_amounts = false;
  OnRandomShowrooms([&](const Showroom& /*showroom*/, Session& session) {
    const RecordsetPtr report = session.Tax(False);
    report->Sort("LabouramtSort");
    std::vector<std::string> texts;
    std::vector<Currency> amounts;
    for (const Recordset::Row row : report->Rows()) {
      if (row["LabouramtSort"].IsNull()) continue;
      texts.push_back(row["LabouramtSort"].ToText());
      amounts.push_back(row["LabouramtSort"].ToCurrency());
    }
    EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end()));
    if (!std::is_sorted(amounts.begin(), amounts.end())) sorts_otherwise_than_amounts = true;
  });
  EXPECT_TRUE(sorts_otherwise_than_amounts);
}

}  // namespace
}  // namespace pstolvane1
