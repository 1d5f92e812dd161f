#include "generator/building_forms.h"

#include <gtest/gtest.h>

#include "core/run_ended.h"
#include "generator/generation_sequence.h"
#include "generator/random_template.h"

namespace {

/// What generating a building comes to: its text, or what ends it.
std::string textOf(const Template& plantilla, const TypologyRecord& typology) {
  OutputLines output;
  const auto fault = faultOf([&] { generate(plantilla, typology, output); });
  return fault ? fault->message : output.text();
}

class FormedText {
 public:
  explicit FormedText(const Template& plantilla) : forms_(plantilla) {}

  std::string of(const TypologyRecord& typology) {
    std::shared_ptr<const BuildingForm> form;
    const auto fault = faultOf([&] { form = forms_.generate(typology, written_, output_); });
    if (fault) return fault->message;
    if (form == nullptr) return output_.text();
    formed_ += form == last_ ? 1 : 0;
    last_ = form;
    form->copyTo(written_, text_);
    return text_;
  }
  /// Buildings that had the form of the last one.
  int formed() const { return formed_; }

 private:
  BuildingForms forms_;
  WrittenPieces written_;
  OutputLines output_;
  std::string text_;
  std::shared_ptr<const BuildingForm> last_;
  int formed_ = 0;
};

}  // namespace

TEST(BuildingForms, MakeTheBuildingsThatAreMadeOneByOne) {
  int formed = 0;
  for (unsigned seed = 0; seed < 3500; ++seed) {
    SCOPED_TRACE(seed);
    RandomTemplate random(seed);
    const std::string text = random.text();
    std::optional<Template> plantilla;
    const auto unreadable = faultOf([&] {
      plantilla.emplace(SourceText("casa.bdl", text),
                        SourceText("casa.tbl", RandomTemplate::kTable), Template::Use::kOften);
    });
    if (unreadable) continue;
    FormedText forms(*plantilla);
    for (int i = 0; i < 8; ++i) {
      TypologyRecord typology(SourceText("casa.tip", random.typology()));
      typology.numeroPlantas = random.storeys();
      typology.areaPlanta = 60.0F + static_cast<float>(i);
      typology.alturaPlanta = 2.5F + static_cast<float>(i) / 8;
      typology.murosFachada = std::string(static_cast<std::size_t>(i), 'M');
      if (i == 6) typology.airChangesHr = 1e-40F;  // of which 4 is no finite number
      ASSERT_EQ(textOf(*plantilla, typology), forms.of(typology)) << text;
    }
    formed += forms.formed();
  }
  EXPECT_GT(formed, 500) << "too few buildings of one form";
}

TEST(BuildingForms, AnOutputThatIsFullHasNone) {
  std::string text = "\"P\" = POLYGON\n..\n\"D\" = BUILD-PARAMETERS\n";
  for (int i = 0; i < OutputLines::kCapacity; ++i) text += "x\n";
  const Template plantilla(SourceText("casa.bdl", text),
                           SourceText("casa.tbl", RandomTemplate::kTable), Template::Use::kOften);
  const TypologyRecord typology(SourceText("casa.tip", RandomTemplate(1).typology()));
  FormedText forms(plantilla);
  for (int i = 0; i < 2; ++i) EXPECT_TRUE(textOf(plantilla, typology) == forms.of(typology));
  EXPECT_EQ(0, forms.formed());
}
