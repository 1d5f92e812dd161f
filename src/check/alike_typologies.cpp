#include "check/alike_typologies.h"

#include <algorithm>

#include "check/written_vivienda.h"

namespace {

void addCodes(const Findings& findings, std::set<Code>& codes) {
  for (const Finding& finding : findings) codes.insert(finding.code);
}

}  // namespace

AlikeTypologies::AlikeTypologies(const CheckedTemplate& checked, const TypologyRecord& first)
    : checked_(&checked), readings_(first, checked.frames()) {
  // Which name was misread can only be told by its place, and of a number that is too large for all
  // the others it cannot be told that they are not.
  differInValues_ = readings_.areAsWritten() &&
                    std::ranges::none_of(readings_.ofWriting(), [](const Finding& finding) {
                      return isMisreadName(finding) || finding.code == Code::kNumeroNoFinito;
                    });
  addCodes(readings_.ofWriting(), ofAll_);
  std::erase_if(ofAll_, isOfPercentage);
  addCodes(nameFindings(checked, first, Wanted::kCodes), ofAll_);
}

std::set<Code> AlikeTypologies::remarkCodesOf(const TypologyRecord& alike, const Plan* plan) {
  std::set<Code> codes = ofAll_;
  for (const auto& percentages : {alike.porcentajeFachada, alike.porcentajePatio}) {
    for (const float percentage : percentages) {
      if (const auto code = codeOfPercentage(percentage)) codes.insert(*code);
    }
  }
  codes.merge(readings_.ofValues(alike, plan));
  if (plan != nullptr) addCodes(planFindings(*checked_, alike, *plan, Wanted::kCodes), codes);
  return codes;
}
