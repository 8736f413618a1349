#include "session/books/sample/Words.h"

namespace pstolvane1::books::sample {
namespace {

using Texts = std::string_view[];

constexpr Texts kMaleNames = {"Aakash", "Bhaskar", "Chirag",  "Devendra", "Eknath",  "Farhan",
                              "Girish", "Harish",  "Imran",   "Jayant",   "Kishore", "Lokesh",
                              "Mahesh", "Naveen",  "Omkar",   "Prakash",  "Qasim",   "Ramesh",
                              "Sanjay", "Tushar",  "Umesh",   "Vinod",    "Wasim",   "Yogesh",
                              "Zubin",  "Balaji",  "Ganesan", "Joseph",   "Murugan", "Gurpreet"};
constexpr Texts kFemaleNames = {"Anjali",  "Bhavana", "Chitra",   "Deepa",  "Farida", "Gauri",
                                "Hema",    "Indira",  "Jyoti",    "Kavita", "Lata",   "Meena",
                                "Nandini", "Pallavi", "Rukmini",  "Savita", "Teresa", "Usha",
                                "Vandana", "Yamini",  "Harpreet", "Selvi"};
constexpr Texts kSurnames = {
    "Agashe",  "Bhandare", "Chaudhari", "Deshmukh", "D'Souza", "Gaikwad", "Hegde",       "Iyer",
    "Jadhav",  "Kulkarni", "Lobo",      "Mhatre",   "Nair",    "Oak",     "Pawar",       "Qureshi",
    "Rao",     "Shaikh",   "Shinde",    "Tambe",    "Upadhye", "Vaidya",  "Wagle",       "Yadav",
    "Zende",   "Bose",     "Das",       "Menon",    "Pillai",  "Reddy",   "Sandhu",      "Trivedi",
    "Solanki", "Thakkar",  "Mishra",    "Tripathi", "Gowda",   "Naidu",   "Subramaniam", "Sarkar"};
constexpr Texts kStreets = {"Station Road",    "Gandhi Chowk",  "Market Yard",  "Shivaji Nagar",
                            "M G Road",        "Old Bus Stand", "College Road", "Temple Street",
                            "Industrial Area", "Nehru Colony",  "Ring Road",    "Cloth Market",
                            "Lake View",       "Civil Lines",   "Highway Naka", "Fort Lane"};
constexpr Texts kFirmWords = {"Ambika",        "Balaji",   "Chintamani",  "Dhanlaxmi", "Ekveera",
                              "Ganadhish",     "Hariom",   "Jagdamba",    "Kailas",    "Laxmi",
                              "Mahalasa",      "Navdurga", "Omkareshwar", "Prabhat",   "Renuka",
                              "Siddhivinayak", "Tulja",    "Venkatesh"};
constexpr Texts kFirmEndings = {"Auto Parts", "Motors",      "Traders", "Automobiles",
                                "Agencies",   "Enterprises", "Garage",  "Spares"};
constexpr Town kTowns[] = {{"Pune", "Pune", "Maharashtra", 411001, "MH12"},
                           {"Satara", "Satara", "Maharashtra", 415001, "MH11"},
                           {"Kolhapur", "Kolhapur", "Maharashtra", 416001, "MH09"},
                           {"Nashik", "Nashik", "Maharashtra", 422001, "MH15"},
                           {"Belgaum", "Belgaum", "Karnataka", 590001, "KA22"},
                           {"Hubli", "Dharwad", "Karnataka", 580020, "KA25"},
                           {"Margao", "South Goa", "Goa", 403601, "GA02"},
                           {"Surat", "Surat", "Gujarat", 395001, "GJ05"},
                           {"Indore", "Indore", "Madhya Pradesh", 452001, "MP09"},
                           {"Nizamabad", "Nizamabad", "Andhra Pradesh", 503001, "AP25"}};
constexpr Texts kColours = {"Candy Red",    "Pearl White", "Midnight Black", "Ocean Blue",
                            "Leaf Green",   "Silver Grey", "Sunset Orange",  "Royal Maroon",
                            "Golden Beige", "Sky Blue"};
constexpr VehicleModel kModels[] = {{"Arohi 100", "Motor Cycles", 2, 31500, "ARA"},
                                    {"Arohi 125 DX", "Motor Cycles", 2, 38200, "ARD"},
                                    {"Dhruvi 110", "Motor Cycles", 2, 34800, "DHR"},
                                    {"Shaurik 150", "Motor Cycles", 2, 47600, "SHK"},
                                    {"Anvesh 180", "Motor Cycles", 2, 56400, "ANV"},
                                    {"Meghna 75", "Scooters", 2, 24900, "MGH"},
                                    {"Vrishti 90", "Scooters", 2, 29700, "VRS"},
                                    {"Kiranta 110 ES", "Scooters", 2, 35100, "KRN"},
                                    {"Pavitra 60", "Mopeds", 1, 17300, "PVT"},
                                    {"Pavitra 60 Super", "Mopeds", 1, 18800, "PVS"},
                                    {"Trivik Cargo", "Three Wheelers", 2, 84500, "TRC"},
                                    {"Trivik Passenger", "Three Wheelers", 4, 88900, "TRP"}};
constexpr PartKind kPartKinds[] = {
    {"Spark Plug", "Electrical Parts", "Fast Moving", 48, "Nos", "Box", 10, 1250, false, false},
    {"Engine Oil 20W40", "Lubricants", "Fast Moving", 110, "Ltr", "Can", 5, 1250, true, false},
    {"Brake Shoe Set", "Brake Parts", "Fast Moving", 85, "Set", "Set", 1, 1250, false, false},
    {"Air Filter", "Engine Parts", "Fast Moving", 95, "Nos", "Nos", 1, 1250, false, false},
    {"Clutch Plate Set", "Engine Parts", "Medium Moving", 260, "Set", "Set", 1, 1250, false, false},
    {"Indicator Bulb 12V", "Electrical Parts", "Fast Moving", 9, "Nos", "Box", 20, 1250, false,
     false},
    {"Helmet Full Face", "Accessories", "Medium Moving", 420, "Nos", "Nos", 1, 1250, true, true},
    {"Chain Sprocket Kit", "Engine Parts", "Medium Moving", 540, "Kit", "Kit", 1, 1250, false,
     false},
    {"Control Cable", "Body Parts", "Fast Moving", 62, "Nos", "Dozen", 12, 1250, false, false},
    {"Tyre 2.75-18", "Tyres and Tubes", "Medium Moving", 690, "Nos", "Nos", 1, 1250, true, false},
    {"Tube 2.75-18", "Tyres and Tubes", "Medium Moving", 115, "Nos", "Nos", 1, 1250, false, false},
    {"Battery 12V 5Ah", "Electrical Parts", "Medium Moving", 620, "Nos", "Nos", 1, 1250, true,
     false},
    {"Seat Cover", "Accessories", "Slow Moving", 180, "Nos", "Nos", 1, 1250, true, true},
    {"Piston Kit", "Engine Parts", "Slow Moving", 780, "Kit", "Kit", 1, 1250, false, false},
    {"Head Lamp Assembly", "Electrical Parts", "Slow Moving", 350, "Nos", "Nos", 1, 1250, false,
     false},
    {"Mirror Pair", "Body Parts", "Medium Moving", 130, "Pair", "Pair", 1, 1250, false, false},
    {"Fuel Tank Cap", "Body Parts", "Slow Moving", 145, "Nos", "Nos", 1, 1250, false, false},
    {"Hex Bolt M8", "Hardware", "Fast Moving", 4, "Nos", "Box", 100, 400, false, false},
    {"Gasket Set", "Engine Parts", "Medium Moving", 165, "Set", "Set", 1, 1250, false, false},
    {"Cylinder Block", "Engine Parts", "Slow Moving", 1480, "Nos", "Nos", 1, 1250, false, false}};
constexpr LabourJob kLabourJobs[] = {
    {"Washing and Greasing", 60},  {"Free Service Labour", 90},  {"Paid Service Labour", 150},
    {"Engine Tuning", 120},        {"Brake Overhaul", 80},       {"Clutch Overhaul", 220},
    {"Wheel Alignment", 110},      {"Electrical Check", 70},     {"Engine Overhaul", 1150},
    {"Denting and Painting", 900}, {"Carburettor Cleaning", 75}, {"Chain Adjustment", 40}};
constexpr Branch kCategoryTree[] = {{"Vehicles", ""},
                                    {"Two Wheelers", "Vehicles"},
                                    {"Motor Cycles", "Two Wheelers"},
                                    {"Scooters", "Two Wheelers"},
                                    {"Mopeds", "Two Wheelers"},
                                    {"Three Wheelers", "Vehicles"},
                                    {"Spare Parts", ""},
                                    {"Engine Parts", "Spare Parts"},
                                    {"Electrical Parts", "Spare Parts"},
                                    {"Brake Parts", "Spare Parts"},
                                    {"Body Parts", "Spare Parts"},
                                    {"Tyres and Tubes", "Spare Parts"},
                                    {"Hardware", "Body Parts"},
                                    {"Accessories", ""},
                                    {"Lubricants", ""},
                                    {"Labour", ""},
                                    {"Discontinued", ""}};
constexpr Branch kClassTree[] = {{"Goods for Sale", ""},
                                 {"Fast Moving", "Goods for Sale"},
                                 {"Medium Moving", "Goods for Sale"},
                                 {"Slow Moving", "Goods for Sale"},
                                 {"Showroom Vehicles", ""},
                                 {"Services", ""}};
constexpr Branch kGodownTree[] = {{"Main Store", ""},
                                  {"Showroom", "Main Store"},
                                  {"Workshop Store", "Main Store"},
                                  {"Branch", ""},
                                  {"Branch Store", "Branch"}};
constexpr Texts kComplaints = {"Starting trouble",  "Low mileage",        "Brake noise",
                               "Oil leakage",       "Horn not working",   "Clutch slipping",
                               "Engine knocking",   "Head lamp dim",      "Chain loose",
                               "Rear wheel wobble", "Self start failing", "Fuel gauge stuck",
                               "Silencer rattling", "Battery discharging"};
constexpr Texts kDefects = {"Crack in casting", "Premature wear", "Short circuit",
                            "Leak at joint",    "Wrong fitment",  "Paint peeling"};
constexpr Texts kPerformances = {"Noisy in operation", "Does not function", "Works at times",
                                 "Loss of power"};
constexpr Texts kFinanciers = {"Sahyadri Auto Credit",  "Deccan Vehicle Finance",
                               "Grameen Sahakari Bank", "Konkan Hire Purchase",
                               "Nagrik Motor Finance",  "Tapi Leasing"};
constexpr Texts kTransporters = {"Ghat Roadways", "Sahayog Cargo Movers", "Bharari Transport",
                                 "Jaldi Parcel Service"};
constexpr Texts kNarrations = {"Goods once sold will be taken back within seven days",
                               "As per telephonic order",
                               "Delivered through transport",
                               "Urgent requirement",
                               "Against old balance",
                               "Checked by store"};
constexpr Texts kServiceTypes = {"Paid Service",       "Running Repair",      "First Free Service",
                                 "Accident Repair",    "Second Free Service", "Warranty Repair",
                                 "Third Free Service", "Engine Overhaul",     "Fourth Free Service",
                                 "Body Work",          "Fifth Free Service",  "Washing Only",
                                 "Sixth Free Service", "Pre-delivery Check"};

}  // namespace

std::span<const std::string_view> MaleNames() { return kMaleNames; }
std::span<const std::string_view> FemaleNames() { return kFemaleNames; }
std::span<const std::string_view> Surnames() { return kSurnames; }
std::span<const std::string_view> Streets() { return kStreets; }
std::span<const std::string_view> FirmWords() { return kFirmWords; }
std::span<const std::string_view> FirmEndings() { return kFirmEndings; }
std::span<const Town> Towns() { return kTowns; }
std::span<const std::string_view> Colours() { return kColours; }
std::span<const VehicleModel> Models() { return kModels; }
std::span<const PartKind> PartKinds() { return kPartKinds; }
std::span<const LabourJob> LabourJobs() { return kLabourJobs; }
std::span<const Branch> CategoryTree() { return kCategoryTree; }
std::span<const Branch> ClassTree() { return kClassTree; }
std::span<const Branch> GodownTree() { return kGodownTree; }
std::span<const std::string_view> Complaints() { return kComplaints; }
std::span<const std::string_view> Defects() { return kDefects; }
std::span<const std::string_view> Performances() { return kPerformances; }
std::span<const std::string_view> Financiers() { return kFinanciers; }
std::span<const std::string_view> Transporters() { return kTransporters; }
std::span<const std::string_view> Narrations() { return kNarrations; }
std::span<const std::string_view> ServiceTypes() { return kServiceTypes; }

}  // namespace pstolvane1::books::sample
