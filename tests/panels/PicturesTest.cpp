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

constexpr std::pair<const char*, int> Pictures[] = {
    {"Normal-Print.gif",               32 },
    {"HoldJob.gif",                    32 },
    {"SaveJob.gif",                    32 },
    {"Print&SaveJob.gif",              32 },
    {"Fax.gif",                        32 },
    {"Secure-Print.gif",               32 },
    {"Delayed-Print.gif",              32 },
    {"Sample-Set.gif",                 32 },
    {"BackgroundForm.gif",             32 },
    {"2 Sided Booklet.gif",            32 },
    {"1 Sided.gif",                    32 },
    {"2 Sided Flip on Long Edge.gif",  32 },
    {"2 Sided Flip on Short Edge.gif", 32 },
    {"AddCovers.gif",                  32 },
    {"AddInserts.gif",                 32 },
    {"AddExceptions.gif",              32 },
    {"TabStock-White.gif",             76 },
    {"MacUp.png",                      16 },
    {"MacDown.png",                    16 },
    {"StockIcon.png",                  32 },
    {"TarvoLogo.png",                  180},
};

// The drawing and what is shown where it cannot be read are of one size.
TEST(Pictures, AreShownWithAndWithoutTheirDrawing)
{
    const CFBundle bundle = BuiltBundle();
    const BundleCopy copy;
    std::filesystem::remove_all(copy.resource("pictures"));
    const CFBundle withoutDrawings = copy.bundle();
    const BundleCopy drawings;
    for (const auto& [name, width] : Pictures) {
        EXPECT_EQ(ShownWidth(bundle, name), width) << name;
        EXPECT_EQ(ShownWidth(withoutDrawings, name), width) << name;
        std::filesystem::resize_file(drawings.resource(name), 0);
        EXPECT_EQ(ShownWidth(drawings.bundle(), name), width) << name << " has no drawing";
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
