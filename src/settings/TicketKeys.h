#pragma once

#include <string_view>

namespace tarvo {

// Entries of the job ticket. Keys inside their dictionaries stand with the records, in records/.

// The system's own; an export from the dialog leaves them out.
inline constexpr std::string_view UseJobNameKey = "UseJobName"; // boolean, without a prefix
inline constexpr std::string_view SystemJobNameKey = "com.apple.print.JobInfo.PMJobName";
inline constexpr std::string_view SystemDuplexKey = "com.apple.print.PrintSettings.PMDuplexing";

// What an export takes: a dictionary in which the presence of a key counts, not its value.
inline constexpr std::string_view ExportOptionsKey = "com.tarvo.print.TPIFOptions";
inline constexpr std::string_view ExportAllKey = "TPIFOptionAll";
inline constexpr std::string_view ExportCoversKey = "TPIFOptionCovers";
inline constexpr std::string_view ExportInsertsKey = "TPIFOptionInserts";
inline constexpr std::string_view ExportExceptionsKey = "TPIFOptionExceptions";

// Paper and output.
inline constexpr std::string_view JobTypeKey = "com.tarvo.print.JobType";             // dictionary
inline constexpr std::string_view JobLevelStockKey = "com.tarvo.print.JobLevelStock"; // dictionary
inline constexpr std::string_view DuplexKey = "com.tarvo.print.FinishingDuplex";
inline constexpr std::string_view OutputDestinationKey =
    "com.tarvo.print.FinishingOutputDestination";
inline constexpr std::string_view OutputColorKey = "com.tarvo.print.FinishingOutputColor";
inline constexpr std::string_view BackgroundFormsOptionsKey =
    "com.tarvo.print.BackgroundFormsOptions"; // dictionary

// Finishing: the family, and the choice within each family.
inline constexpr std::string_view FinishingOptionsKey = "com.tarvo.print.FinishingOptions";
inline constexpr std::string_view Staple1ValueKey = "com.tarvo.print.FinishingStaple1Value";
inline constexpr std::string_view Staple2ValueKey = "com.tarvo.print.FinishingStaple2Value";
inline constexpr std::string_view StapleCenterValueKey =
    "com.tarvo.print.FinishingStapleCenterValue";
inline constexpr std::string_view FoldValueKey = "com.tarvo.print.FinishingFoldValue";
inline constexpr std::string_view BindValueKey = "com.tarvo.print.FinishingBindValue";
inline constexpr std::string_view HolePunchValueKey = "com.tarvo.print.FinishingHolePunchValue";
inline constexpr std::string_view HolePunchOptionsKey = "com.tarvo.print.FinishingHolePunchOptions";
inline constexpr std::string_view ZFoldValueKey = "com.tarvo.print.FinishingZFoldValue";
inline constexpr std::string_view CustomFinishingKey = "com.tarvo.print.FinishingCustom"; // string
inline constexpr std::string_view BookletFoldStapleKey = "com.tarvo.print.BookletFoldStaple";
inline constexpr std::string_view BookletLayoutKey = "com.tarvo.print.BookletLayout"; // boolean
inline constexpr std::string_view SlipSheetKey = "com.tarvo.print.FinishingSlipSheet";
inline constexpr std::string_view OffsetKey = "com.tarvo.print.FinishingOffset";
inline constexpr std::string_view OffsetEnableSubsetKey =
    "com.tarvo.print.FinishingOffsetEnableSubset";
inline constexpr std::string_view OffsetPagesPerSubsetKey =
    "com.tarvo.print.FinishingOffsetPagesPerSubset";

// Special pages.
inline constexpr std::string_view FrontCoverKey = "com.tarvo.print.SpecialPages.FrontCover";
inline constexpr std::string_view BackCoverKey = "com.tarvo.print.SpecialPages.BackCover";
inline constexpr std::string_view InsertListKey = "com.tarvo.print.SpecialPages.InsertList";
inline constexpr std::string_view ExceptionListKey = "com.tarvo.print.SpecialPages.ExceptionList";

// Image and colour.
inline constexpr std::string_view ResolutionKey = "com.tarvo.print.Resolution";
inline constexpr std::string_view HalftoneScreenKey = "com.tarvo.print.HalftoneScreen";
inline constexpr std::string_view HighlightColorOptionsKey =
    "com.tarvo.print.HighlightColorOptionsJob"; // dictionary
inline constexpr std::string_view JobImageShiftKey =
    "com.tarvo.print.ImageShiftOptionsJob"; // dictionary
inline constexpr std::string_view FullColorOptionsKey =
    "com.tarvo.print.FullColorOptions"; // dictionary
inline constexpr std::string_view AntialiasingKey = "com.tarvo.print.Antialiasing";
inline constexpr std::string_view LightenDarkenKey = "com.tarvo.print.LightenDarken";
inline constexpr std::string_view TonerSaverKey = "com.tarvo.print.TonerSaver"; // boolean
inline constexpr std::string_view InvertImageOptionsKey =
    "com.tarvo.print.InvertImageOptions"; // dictionary of the next two, booleans
inline constexpr std::string_view NegativeImageKey = "NegativeImage";
inline constexpr std::string_view MirrorImageKey = "MirrorImage";

// Job notes, strings.
inline constexpr std::string_view JobNotesJobNameKey = "com.tarvo.print.JobNotesJobName";
inline constexpr std::string_view JobNotesSenderNameKey = "com.tarvo.print.JobNotesSenderName";
inline constexpr std::string_view JobNotesRecipientKey = "com.tarvo.print.JobNotesRecipient";
inline constexpr std::string_view JobNotesMessageKey = "com.tarvo.print.JobNotesMessage";
inline constexpr std::string_view JobNotesSheetMessageKey = "com.tarvo.print.JobNotesSheetMessage";
inline constexpr std::string_view JobNotesAdditionalInfoKey =
    "com.tarvo.print.JobNotesAdditionalInfo";

// Layout.
inline constexpr std::string_view BookletDrawOutlinesKey = "com.tarvo.print.BookletDrawOutlines";
inline constexpr std::string_view BookletForceNewSizeKey =
    "com.tarvo.print.BookletForceNewSize"; // boolean

// Advanced. The missing "t" of "OPISubsitution" is the ticket's own.
inline constexpr std::string_view BookletLayoutOrderKey =
    "com.tarvo.print.AdvancedBookletLayoutOrderStr"; // a number, for all its name
inline constexpr std::string_view EmitTPIFKey = "com.tarvo.print.EmitTPIF";
inline constexpr std::string_view RotateBookletKey = "com.tarvo.print.RotateBooklet180Degrees";
inline constexpr std::string_view OPISubstitutionKey = "com.tarvo.print.OPISubsitution";
inline constexpr std::string_view OPIPrescanKey = "com.tarvo.print.OPIPrescan";
inline constexpr std::string_view OutputOrderKey = "com.tarvo.print.OutputOrder";
inline constexpr std::string_view QuillonEmulationKey = "com.tarvo.print.QuillonEmulation";
inline constexpr std::string_view RotateImageKey = "com.tarvo.print.AdvancedRotateImage180";

// Accounting, written by the site's accounting client.
inline constexpr std::string_view AccountingOnKey = "com.tarvo.Act.tpif.On";
inline constexpr std::string_view AccountingUserKey = "com.tarvo.Act.tpif.UID";    // string
inline constexpr std::string_view AccountingAccountKey = "com.tarvo.Act.tpif.AID"; // string

} // namespace tarvo
