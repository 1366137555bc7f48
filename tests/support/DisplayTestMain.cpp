// main() of tests with widgets. They need a display; xvfb-run gives them one of their own.
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <gtkmm/main.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (gtk_init_check(&argc, &argv) == FALSE) {
        static_cast<void>(std::fprintf(stderr, "no display: run it under xvfb-run\n"));
        return 1;
    }
    Gtk::Main::init_gtkmm_internals();
    return RUN_ALL_TESTS();
}
