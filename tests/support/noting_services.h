#pragma once

#include <string>
#include <vector>

#include "platform/corvane1/error_log.h"
#include "platform/corvane1/host_frame.h"
#include "tests/support/recording_connection.h"

/// Services that note in the log of a connection what the host is told, so that its place among the
/// statements shows.
namespace quenzel7::test {

class NotingFrame final : public corvane1::HostFrame {
 public:
  explicit NotingFrame(RecordingConnection& recorder) : recorder_(recorder) {}
  void SetPointer(Long pointer) override { recorder_.Note("pointer " + std::to_string(pointer)); }
  void AddOutput(const std::string& text, Long) override { recorder_.Note("output " + text); }
  void InterruptWork() override { recorder_.Note("interrupt"); }
  void Refresh(Long which, Long what) override {
    recorder_.Note("refresh " + std::to_string(which) + " " + std::to_string(what));
  }

 private:
  RecordingConnection& recorder_;
};

class NotingErrors final : public corvane1::ErrorLog {
 public:
  explicit NotingErrors(RecordingConnection& recorder) : recorder_(recorder) {}
  void Report(const corvane1::ErrorReport& report) override {
    recorder_.Note("log");
    reports.push_back(report);
  }
  std::vector<corvane1::ErrorReport> reports;

 private:
  RecordingConnection& recorder_;
};

}  // namespace quenzel7::test
