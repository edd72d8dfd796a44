// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace korvane {

// Why a database cannot be used, by the numbers that database engines give such failures.
enum class DatabaseFailure {
  noCurrentRecord = 3021,
  fileNotFound = 3024,
  cannotStore = 3027,
  noDriver = 3170,  // no dBASE table of a version that is known here
  noSuchField = 3265,
  damaged = 3274,
};

// The one failure of the database reader. what() is a sentence for the user.
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(DatabaseFailure failure, const std::string& description)
      : std::runtime_error(description), failure_(failure) {}

  DatabaseFailure failure() const { return failure_; }
  int number() const { return static_cast<int>(failure_); }

 private:
  DatabaseFailure failure_;
};

}  // namespace korvane
