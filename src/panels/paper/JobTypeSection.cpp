#include "panels/paper/JobTypeSection.h"

#include "panels/PanelEnvironment.h"
#include "panels/paper/BackgroundFormsDialog.h"
#include "panels/paper/PaperOutputMenus.h"
#include "panels/paper/PaperOutputSettings.h"
#include "panels/paper/SaveJobAsDialog.h"
#include "panels/toolkit/ControlBindings.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/WidgetTexts.h"
#include "prefs/PreferenceFiles.h"
#include "printer/PrinterDescription.h"
#include "records/BackgroundFormsOptions.h"
#include "records/JobTypeKeys.h"

#include <cstdio>

namespace tarvo {

JobTypeSection::JobTypeSection(Nib& nib, PaperOutputSettings& settings, ControlBindings& bindings)
    : settings_(settings),
      bindings_(bindings),
      type_(nib.widget<Gtk::ComboBox>("Tshl201")),
      picture_(nib.widget<Gtk::Image>("Tshl202")),
      setup_(nib.widget<Gtk::Button>("Tshl203"))
{
}

void JobTypeSection::bind()
{
    const CFBundle& bundle = *GetPDEBundle();
    bindings_.bindMenu(
        type_, [this, &bundle] { return menu(bundle); },
        [this](std::int32_t chosen) { settings_.jobType.set(JobTypeNumberKey, chosen); });
    bindings_.bindPicture(picture_, bundle,
                          [this] { return JobTypePicture(JobTypeOf(settings_)); });
    bindings_.bindView([this, &bundle] {
        const JobTypeSetup setup = SetupOfJobType(JobTypeOf(settings_));
        RelabelButton(*setup_.get(), bundle.localizedString(setup.key));
        setup_->set_sensitive(setup.isEnabled);
    });
    setup_->signal_clicked().connect(Guarded([this] { setUp(); }));
}

// A type that the printer does not offer stays to be chosen again.
Menu JobTypeSection::menu(const CFBundle& bundle)
{
    const auto* printer = PrinterDescription::Current();
    const std::int32_t type = JobTypeOf(settings_);
    if (!OffersJobType(printer, type)) {
        brought_ = type;
    }
    return JobTypeMenu(bundle, printer, type, brought_);
}

void JobTypeSection::setUp()
{
    if (JobTypeOf(settings_) == static_cast<std::int32_t>(JobType::BackgroundForms)) {
        setUpBackgroundForms();
        return;
    }
    const std::weak_ptr<bool> alive = alive_;
    const auto details =
        RunSaveJobAsDialog(GetPDEWindow(), *GetPDEBundle(), DetailsOfJobType(settings_));
    if (details && !alive.expired()) {
        AcceptJobTypeDetails(settings_, *details);
        bindings_.show();
    }
}

void JobTypeSection::setUpBackgroundForms()
{
    const PreferenceFolders folders = UserPreferenceFolders();
    BackgroundFormsOptions forms(settings_.backgroundForms, folders);
    const std::weak_ptr<bool> alive = alive_;
    const auto choice = RunBackgroundFormsDialog(GetPDEWindow(), *GetPDEBundle(), forms);
    if (!choice || AcceptBackgroundForms(forms, *choice) != StatusOk || alive.expired()) {
        return;
    }
    settings_.backgroundForms = forms.asTicket();
    PreferenceFailure failure;
    if (!forms.saveHistory(folders, failure)) { // the job has its form all the same
        static_cast<void>(std::fprintf(stderr, "%s\n", failure.message().c_str()));
    }
}

} // namespace tarvo
