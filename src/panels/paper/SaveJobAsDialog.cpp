#include "panels/paper/SaveJobAsDialog.h"

#include "panels/toolkit/DialogChecks.h"
#include "panels/toolkit/Dialogs.h"
#include "panels/toolkit/Guarded.h"
#include "panels/toolkit/Nib.h"
#include "panels/toolkit/PopupButton.h"
#include "panels/toolkit/SpinFields.h"
#include "panels/toolkit/TextFilters.h"
#include "platform/bundle/CFBundle.h"
#include "records/JobTypeKeys.h"
#include "settings/JobMaps.h"
#include "settings/SettingMenu.h"

#include <glibmm/datetime.h>
#include <gtkmm/calendar.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/togglebutton.h>

#include <ctime>

namespace tarvo {
namespace {

struct FaultRow {
    JobTypeFault fault;
    const char* headerKey;
    const char* messageKey;
};
constexpr FaultRow Faults[] = {
    {JobTypeFault::Passcode,      "Invalid Passcode Header", "Invalid Passcode Message"},
    {JobTypeFault::TimeInThePast, "Past Print Time Header",  "Past Print Time Message" },
};

// The groups of controls, each for some job types.
struct GroupRow {
    const char* name;
    JobType types[2];
};
constexpr GroupRow Groups[] = {
    {"TPDE11", {JobType::Save, JobType::SaveAndPrint}        },
    {"TPDE12", {JobType::SecurePrint, JobType::SecurePrint}  },
    {"TPDE13", {JobType::DelayedPrint, JobType::DelayedPrint}},
    {"TPDE14", {JobType::Fax, JobType::Fax}                  },
};

// A time that no calendar has, as a ticket may bring, is shown as that of tomorrow.
Glib::DateTime LocalTime(CFDate time)
{
    const auto local = Glib::DateTime::create_now_local(time.secondsSinceEpoch);
    return local ? local : Glib::DateTime::create_now_local().add_days(1);
}

// The fields end with the minute.
bool IsSameMinute(const Glib::DateTime& one, const Glib::DateTime& other)
{
    return one.format("%F %H:%M") == other.format("%F %H:%M");
}

class SaveJobAsDialog {
public:
    explicit SaveJobAsDialog(Nib& nib)
        : dialog_(nib.window<Gtk::Dialog>("SaveJobAs")),
          usesJobName_(nib.widget<Gtk::ToggleButton>("TPDE1")),
          name_(nib.widget<Gtk::Entry>("TPDE2")),
          location_(nib.widget<Gtk::Entry>("TPDE3")),
          format_(nib.widget<Gtk::ComboBox>("TPDE4")),
          passcode_(nib.widget<Gtk::Entry>("TPDE5")),
          passcodeAgain_(nib.widget<Gtk::Entry>("TPDE6")),
          date_(nib.widget<Gtk::Calendar>("TPDE7")),
          hour_(nib.widget<Gtk::SpinButton>("TPDE8")),
          minute_(nib.widget<Gtk::SpinButton>("TPDE9"))
    {
        for (const GroupRow& row : Groups) {
            groups_.push_back(nib.widget<Gtk::Widget>(row.name));
        }
    }

    std::optional<JobTypeDetails> run(Gtk::Window* parent, const CFBundle& bundle,
                                      const JobTypeDetails& current)
    {
        details_ = current;
        limitInput();
        show(bundle);
        AcceptOnlyIf(*dialog_.get(), [this, &bundle] { return accept(bundle); });
        const bool isOk = RunModalWindow(bundle, *dialog_.get(), parent) == DialogOk;
        return isOk ? std::optional(details_) : std::nullopt;
    }

private:
    void limitInput()
    {
        LimitInputLength(name_.get(), LongestSavedJobName);
        LimitInputLength(location_.get(), LongestSavedJobLocation);
        for (const auto& field : {passcode_, passcodeAgain_}) {
            LimitInputLengthAndCharacters(field.get(), LongestPasscode, "0123456789");
        }
        for (const auto& field : {hour_, minute_}) {
            KeepNumberOfEmptyField(*field.get());
        }
        name_->signal_changed().connect(Guarded([this] { complete(); }));
        usesJobName_->signal_toggled().connect(Guarded([this] { complete(); }));
    }

    void show(const CFBundle& bundle)
    {
        for (std::size_t index = 0; index < groups_.size(); ++index) {
            const auto& [first, second] = Groups[index].types;
            const auto type = static_cast<JobType>(details_.type);
            groups_[index]->set_visible(type == first || type == second);
        }
        if (!groups_.front()->get_visible()) { // else it has the title of a saved job
            dialog_->set_title(bundle.localizedString(
                LocalizedKeyForTicketValue(OptionalJobTypeMap, details_.type)));
        }
        usesJobName_->set_active(details_.usesJobName);
        name_->set_text(details_.savedName);
        location_->set_text(details_.savedLocation);
        Menu formats;
        PopulateMenuFromMap(bundle, formats, JobFormatMap, JobContext::Job);
        PopulatePopupButton(*format_.get(), formats);
        SetPopupButtonToTicketValue(format_.get(), details_.saveFormat);
        passcode_->set_text(details_.passcode);
        passcodeAgain_->set_text(details_.passcodeAgain);
        showTime();
        complete();
    }

    void showTime()
    {
        const auto time = LocalTime(details_.printTime);
        details_.printTime = {time.to_unix()};
        date_->select_month(static_cast<guint>(time.get_month() - 1),
                            static_cast<guint>(time.get_year()));
        date_->select_day(static_cast<guint>(time.get_day_of_month()));
        hour_->set_value(time.get_hour());
        minute_->set_value(time.get_minute());
    }

    void complete()
    {
        name_->set_sensitive(!usesJobName_->get_active());
        JobTypeDetails details = details_;
        details.usesJobName = usesJobName_->get_active();
        details.savedName = name_->get_text();
        dialog_->set_response_sensitive(Gtk::RESPONSE_OK, IsComplete(details));
    }

    bool accept(const CFBundle& bundle)
    {
        take();
        const JobTypeFault fault =
            FaultOf(details_, {static_cast<std::int64_t>(std::time(nullptr))});
        for (const FaultRow& row : Faults) {
            if (row.fault == fault) {
                DisplayNotice(bundle, dialog_.get(), row.headerKey, row.messageKey);
            }
        }
        return fault == JobTypeFault::None;
    }

    void take()
    {
        details_.usesJobName = usesJobName_->get_active();
        details_.savedName = name_->get_text();
        details_.savedLocation = location_->get_text();
        details_.saveFormat = GetPopupButtonTicketValue(*format_.get(), details_.saveFormat);
        details_.passcode = passcode_->get_text();
        details_.passcodeAgain = passcodeAgain_->get_text();
        takeTime();
    }

    // What is typed into a field counts without leaving it. A time that is as it was shown keeps
    // its seconds: without them it might be over.
    void takeTime()
    {
        hour_->update();
        minute_->update();
        guint year = 0;
        guint month = 0;
        guint day = 0;
        date_->get_date(year, month, day);
        const auto time = Glib::DateTime::create_local(
            static_cast<int>(year), static_cast<int>(month) + 1, static_cast<int>(day),
            hour_->get_value_as_int(), minute_->get_value_as_int(), 0);
        if (time && !IsSameMinute(time, LocalTime(details_.printTime))) {
            details_.printTime = {time.to_unix()};
        }
    }

    Glib::RefPtr<Gtk::Dialog> dialog_;
    Glib::RefPtr<Gtk::ToggleButton> usesJobName_;
    Glib::RefPtr<Gtk::Entry> name_;
    Glib::RefPtr<Gtk::Entry> location_;
    Glib::RefPtr<Gtk::ComboBox> format_;
    Glib::RefPtr<Gtk::Entry> passcode_;
    Glib::RefPtr<Gtk::Entry> passcodeAgain_;
    Glib::RefPtr<Gtk::Calendar> date_;
    Glib::RefPtr<Gtk::SpinButton> hour_;
    Glib::RefPtr<Gtk::SpinButton> minute_;
    std::vector<Glib::RefPtr<Gtk::Widget>> groups_; // as in Groups
    JobTypeDetails details_;
};

} // namespace

std::optional<JobTypeDetails> RunSaveJobAsDialog(Gtk::Window* parent, const CFBundle& bundle,
                                                 const JobTypeDetails& current)
{
    auto nib = Nib::Open(bundle, "SaveJobAs");
    if (!nib) {
        return std::nullopt;
    }
    SaveJobAsDialog dialog(*nib);
    if (!nib->isComplete()) {
        return std::nullopt;
    }
    nib.reset();
    return dialog.run(parent, bundle, current);
}

} // namespace tarvo
