// What is told about a call that is carried out all the same.
#include "HostProgram.h"

namespace pstolvane1::host::test {
namespace {

class CallWarnings : public SampleHost {
 protected:
  static Words Stock(const std::string& year, const std::string& from, const std::string& to,
                     const std::string& method = "AverageRate", const std::string& group = "-1") {
    return {"run",
            "StockDetails_Categorywise",
            "--books",
            Books(),
            "bytYearno=" + year,
            "dtFromDate=" + from,
            "dtToDate=" + to,
            "ValuationMethod=" + method,
            "lngAny_Id1=" + group,
            "blnDetailed=0",
            "blnAltUom=0",
            "sngScale=1",
            "blnOnlyItems=0"};
  }
  // What is told, when the exit status and the result are as ever.
  static std::string Warned(Words words) {
    const Finished finished = Stolvane(words);
    EXPECT_EQ(finished.status, 0) << finished.err;
    words.emplace_back("--quiet");
    const Finished quiet = Stolvane(words);
    EXPECT_EQ(quiet.err, "");
    EXPECT_EQ(quiet.out, finished.out);
    return finished.err;
  }
};

TEST_F(CallWarnings, NothingIsSaidOfARightCall) {
  EXPECT_EQ(Warned(Stock("2", "2004-04-01", "2005-03-31", "FifoRate", "1")), "");
}

TEST_F(CallWarnings, ThePeriodAndItsYear) {
  EXPECT_EQ(Warned(Stock("1", "2004-04-01", "2005-03-31")),
            "stolvane: warning: year 1 of the books goes from 2003-04-01 to 2004-03-31, the period "
            "from 2004-04-01 to 2005-03-31\n");
  EXPECT_EQ(Warned(Stock("7", "2004-04-01", "2005-03-31")),
            "stolvane: warning: the books have no year 7; \"stolvane list years\" lists them\n");
  EXPECT_NE(Warned(Stock("2", "2005-03-31", "2004-04-01"))
                .find("stolvane: warning: the period ends on 2004-04-01, before it begins on "
                      "2005-03-31\n"),
            std::string::npos);
}

TEST_F(CallWarnings, KeysThatTheBooksLack) {
  EXPECT_NE(Warned(Stock("2", "2004-04-01", "2005-03-31", "FifoRate", "987"))
                .find("stolvane: warning: lngAny_Id1: the books have no item category with the key "
                      "987\n"),
            std::string::npos);
  const std::string sales =
      Warned({"run", "Doc_Initial", "--books", Books(), "lngVouchertype_id=987",
              "dtFromDate=2004-04-01", "dtToDate=2005-03-31"});
  EXPECT_EQ(sales,
            "stolvane: warning: lngVouchertype_id: the books have no voucher type with the key "
            "987\nstolvane: warning: the report has no lines\n");
}

TEST_F(CallWarnings, KeysWhoseListFollowsAnotherArgument) {
  const auto warned = [](const std::string& operation, const Words& arguments) {
    Words words = {
        "run", operation, "--books", Books(), "dtFromDate=2004-04-01", "dtToDate=2005-03-31"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return Warned(words);
  };
  const auto lacking = [](const std::string& what) {
    return "stolvane: warning: " + what +
           " with the key 987\nstolvane: warning: the report has no "
           "lines\n";
  };
  for (const auto& [type, one] : {std::pair{"rtMovement_LedgerAnalysis", "party"},
                                  {"rtMovement_ItemAnalysis", "item"},
                                  {"rtMovement_GroupAnalysis", "party group"},
                                  {"rtMovement_CategoryAnalysis", "item category"},
                                  {"movement_classanalysis", "item class"}}) {
    EXPECT_EQ(warned("CustomerItemwise_Analysis",
                     {std::string("reptype=") + type, "lngId=987", "blnDetailed=yes"}),
              lacking(std::string("lngId: the books have no ") + one))
        << type;
  }
  EXPECT_EQ(warned("CustomerItemwise_Analysis",
                   {"reptype=rtMovement_ClassAnalysis", "lngId=-1", "blnDetailed=no"}),
            "");
  EXPECT_EQ(warned("CategoryWise_Initial",
                   {"blnIsclass=yes", "lngId=987", "lngVouchertype_id=10", "sngScale=1"}),
            "stolvane: warning: lngId: the books have no item class with the key 987\n");
}

TEST_F(CallWarnings, AValuationWithoutAReport) {
  EXPECT_EQ(Warned(Stock("2", "2004-04-01", "2005-03-31", "CurrentRate")),
            "stolvane: warning: StockDetails_Categorywise has no report for ValuationMethod "
            "CurrentRate\n");
}

TEST_F(CallWarnings, ACancelledReport) {
  const Finished cancelled =
      Stolvane({"run", "Doc_Initial", "--books", Books(), "lngVouchertype_id=10",
                "dtFromDate=2004-04-01", "dtToDate=2005-03-31", "--cancel"});
  EXPECT_EQ(cancelled.status, 0);
  EXPECT_EQ(cancelled.err,
            "stolvane: warning: the report was cancelled: lines may be missing, and its totals are "
            "of those it has\n");
}

TEST_F(CallWarnings, TheCurrencyIsThatOfTheBooks) {
  const auto amounts = [](const Words& more) {
    Words words = {"run",
                   "Doc_Initial",
                   "--books",
                   Books(),
                   "lngVouchertype_id=10",
                   "dtFromDate=2004-04-01",
                   "dtToDate=2004-04-30",
                   "--format",
                   "csv"};
    words.insert(words.end(), more.begin(), more.end());
    return Stolvane(words).out;
  };
  EXPECT_NE(amounts({"--locale", "de_DE", "--currency", "INR"}).find("\"44.489,25\u00A0₹\""),
            std::string::npos);
  EXPECT_NE(amounts({"--locale", "de_DE"}).find("\"44.489,25\u00A0€\""), std::string::npos);
  EXPECT_NE(amounts({"--locale", "ja_JP@currency=INR"}).find("\"₹44,489.25\""), std::string::npos);
  const Finished unknown = Stolvane({"list", "years", Books(), "--currency", "RUPEES"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_NE(unknown.err.find("there is no currency \"RUPEES\""), std::string::npos) << unknown.err;
}

}  // namespace
}  // namespace pstolvane1::host::test
