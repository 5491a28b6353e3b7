#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/ado/connection.h"
#include "platform/automation/types.h"

namespace quenzel7::fennick1 {

/// What tells an operand from all others.
struct OperandKey {
  Long type = 0;
  Long address = 0;
  Long network = 0;

  friend bool operator==(const OperandKey&, const OperandKey&) = default;
};

/// What an operand carries.
struct OperandContent {
  std::string comment;
  /// Of the types that hold a value of their own.
  Currency value;

  friend bool operator==(const OperandContent&, const OperandContent&) = default;
};

/// The operands that a project has.
class OperandStore {
 public:
  virtual ~OperandStore() = default;

  /// What the operand carries, or nothing when the project does not have it.
  virtual std::optional<OperandContent> Load(const OperandKey& key) = 0;
  bool IsDefined(const OperandKey& key) { return Load(key).has_value(); }
  /// Enters an operand; one that is there already takes the new content.
  virtual void Add(const OperandKey& key, const OperandContent& content) = 0;
  /// Takes an operand out; does nothing when it is not there.
  virtual void Remove(const OperandKey& key) = 0;
  /// The smallest address, from 0, that no operand of the type has in the network. Error 6 when there is
  /// none.
  virtual Long FreeAddress(Long type, Long network) = 0;
};

/// The embedded default: keeps the operands in the table Operands of the open project.
class ProjectOperandStore final : public OperandStore {
 public:
  /// The function gives the connection of the open project, and raises what is to be raised when there is
  /// none.
  explicit ProjectOperandStore(std::function<ado::ConnectionRef()> connection);

  std::optional<OperandContent> Load(const OperandKey& key) override;
  void Add(const OperandKey& key, const OperandContent& content) override;
  void Remove(const OperandKey& key) override;
  Long FreeAddress(Long type, Long network) override;

 private:
  std::function<ado::ConnectionRef()> connection_;
};

}  // namespace quenzel7::fennick1
