#include "panels/toolkit/Pictures.h"

#include "support/BuiltBundle.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <fstream>

namespace tarvo {
namespace {

// The width of what is shown, in points; 0 for nothing.
int ShownWidth(const CFBundle& bundle, const char* fileName)
{
    Gtk::Image image;
    image.show();
    if (!ShowPicture(bundle, image, fileName)) {
        EXPECT_EQ(image.get_storage_type(), Gtk::IMAGE_EMPTY);
        return 0;
    }
    int width = 0;
    gtk_widget_get_preferred_width(GTK_WIDGET(image.gobj()), nullptr, &width);
    return width;
}

const std::pair<int, std::vector<const char*>> Pictures[] = {
    {32,
     {"Normal-Print.gif", "HoldJob.gif", "SaveJob.gif", "Print&SaveJob.gif", "Fax.gif",
      "Secure-Print.gif", "Delayed-Print.gif", "Sample-Set.gif", "BackgroundForm.gif",
      "1 Sided.gif", "2 Sided Booklet.gif", "2 Sided Flip on Long Edge.gif",
      "2 Sided Flip on Short Edge.gif", "AddCovers.gif", "AddInserts.gif", "AddExceptions.gif",
      "StockIcon.png"}                },
    {76,  {"TabStock-White.gif"}      },
    {16,  {"MacUp.png", "MacDown.png"}},
    {180, {"TarvoLogo.png"}           },
};

// The drawing and what is shown where it cannot be read are of one size.
TEST(Pictures, AreShownWithAndWithoutTheirDrawing)
{
    const CFBundle bundle = BuiltBundle();
    const BundleCopy copy;
    std::filesystem::remove_all(copy.resource("pictures"));
    const CFBundle withoutDrawings = copy.bundle();
    const BundleCopy drawings;
    for (const auto& [width, names] : Pictures) {
        for (const char* name : names) {
            EXPECT_EQ(ShownWidth(bundle, name), width) << name;
            EXPECT_EQ(ShownWidth(withoutDrawings, name), width) << name;
            std::filesystem::resize_file(drawings.resource(name), 0);
            EXPECT_EQ(ShownWidth(drawings.bundle(), name), width) << name << " has no drawing";
        }
    }
}

TEST(Pictures, AreLeftOutWhenMissingOrBroken)
{
    const BundleCopy copy;
    std::filesystem::remove(copy.resource("Fax.gif"));
    std::ofstream(copy.resource("pictures/HoldJob.svg")) << "<svg";
    std::ofstream(copy.resource("pictures/SaveJob.svg")) << "";
    std::ofstream(copy.resource("SaveJob.gif")) << "GIF89a";
    const CFBundle bundle = copy.bundle();
    EXPECT_EQ(ShownWidth(bundle, "Fax.gif"), 0);
    EXPECT_EQ(ShownWidth(bundle, "HoldJob.gif"), 32);
    EXPECT_EQ(ShownWidth(bundle, "SaveJob.gif"), 0);
}

} // namespace
} // namespace tarvo
