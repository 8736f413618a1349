// What the sample books are written with: invented people, firms, vehicles and goods.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pstolvane1::books::sample {

struct Town {
  std::string_view name, district, state;
  int pin;                        // of its first quarter; the next ones follow
  std::string_view registration;  // of its transport office
};

struct VehicleModel {
  std::string_view name;
  std::string_view category;
  int seats;
  int cost_rupees;
  std::string_view code;  // in chassis and engine numbers
};

// A kind of part; every part is one of these for one of the models, in one grade.
struct PartKind {
  std::string_view name;
  std::string_view category;
  std::string_view item_class;
  int cost_rupees;
  std::string_view unit, alternate_unit;
  int relation;        // main units in one alternate unit
  int tax_hundredths;  // of a percent
  bool batches;        // kept by lot
  bool colours;        // the lots have colours
};

struct LabourJob {
  std::string_view name;
  int rupees;
};

// A name and its parent in a tree; the parent of a root is empty.
struct Branch {
  std::string_view name, parent;
};

std::span<const std::string_view> MaleNames();
std::span<const std::string_view> FemaleNames();
std::span<const std::string_view> Surnames();
std::span<const std::string_view> Streets();
std::span<const std::string_view> FirmWords();
std::span<const std::string_view> FirmEndings();
std::span<const Town> Towns();
std::span<const std::string_view> Colours();
std::span<const VehicleModel> Models();
std::span<const PartKind> PartKinds();
std::span<const LabourJob> LabourJobs();
std::span<const Branch> CategoryTree();
std::span<const Branch> ClassTree();
std::span<const Branch> GodownTree();
std::span<const std::string_view> Complaints();
std::span<const std::string_view> Defects();
std::span<const std::string_view> Performances();
std::span<const std::string_view> Financiers();
std::span<const std::string_view> Transporters();
std::span<const std::string_view> Narrations();
// By service type number, from 1; the odd numbers from 3 to 13 are the six free services.
std::span<const std::string_view> ServiceTypes();

}  // namespace pstolvane1::books::sample
