// The settings of a TV from managed code, without a window:
//
//   mcs -out:client.exe Client.cs Tessarin.cs
//   QUIRELLE_TV=tv.db mono client.exe /tmp/list.zip
//
// Says what TV this is, finds a slot on the single cable, drives the dish, tries a fine tune, lists and locks ratings,
// and writes and loads the channel list.
using System;
using System.Text.RegularExpressions;
using System.Threading;

static class Client {
  const int Tuner = 0, Steps = 5;

  static int NumberOf(string json, string name) {
    return int.Parse(Regex.Match(json, "\"" + name + "\"\\s*:\\s*(-?\\d+)").Groups[1].Value);
  }

  static int Number(bool value) { return value ? 1 : 0; }

  static void FindSlot() {
    if (!Tessarin.SendSatCRCommand(Tuner, Tessarin.SatCRCommand.Detect)) {
      Console.WriteLine("slot: cannot be read");
      return;
    }
    int progress = 0, frequency = -1;
    // A run that does not come on for 10 seconds has been ended by somebody else.
    for (int still = 0; progress < 100 && still < 200; ++still) {
      string status = Tessarin.GetSatCRProgress(Tuner);
      if (NumberOf(status, "Progress") > progress) still = 0;
      progress = NumberOf(status, "Progress");
      frequency = NumberOf(status, "SlotFrequency");
      Thread.Sleep(50);
    }
    bool found = Tessarin.IsSatCRCommandSuccess(Tuner, frequency, 1);
    Tessarin.SendSatCRCommand(Tuner, Tessarin.SatCRCommand.Stop);
    int stored = found ? Tessarin.SetSatCRSlotFrequency(Tuner, frequency) : -1;
    Console.WriteLine("slot: found {0}, stored {1}, now {2} MHz", Number(found), stored,
                      Tessarin.GetSlotFrequency(Tuner));
  }

  static void DriveDish() {
    Tessarin.InstallerStorePosition();
    Tessarin.InstallerResetLimit();
    Tessarin.UserStorePosition();
    Console.WriteLine("tuned: " + Tessarin.TuneAloneSelectedTransponder(true));
    Tessarin.InstallerGoToZero();
  }

  static void FineTune() {
    Tessarin.PresetTunerMft(Steps);
    Tessarin.SetTunerMft();
    Tessarin.SetFineTuneType();
    Tessarin.SetFinetuneFreq(Steps);
    int kept = Tessarin.GetTunerMft();
    Tessarin.ResetTurnerMft();
    Tessarin.ResetFinetuneType();
    Tessarin.SetFinetuneFreq(0);
    Console.WriteLine("fine tune: {0} steps, then {1}", kept, Tessarin.GetTunerMft());
  }

  static void LockRating() {
    Console.WriteLine("ratings: " + (Tessarin.GetRatingInfo() ?? "none"));
    int result = Tessarin.SetRRSLock(0, 1, true);
    Console.WriteLine("lock: {0}, locked {1}", result, Number(Tessarin.GetRRSLock(0, 1)));
  }

  static int Main(string[] arguments) {
    if (arguments.Length != 1) {
      Console.Error.WriteLine("usage: client.exe ARCHIVE.zip");
      return 2;
    }
    Console.WriteLine("date: " + Tessarin.GetCurrentDateString());
    Console.WriteLine("country: " + Tessarin.GetCurrentCountryCode());
    Console.WriteLine("text: " + Tessarin.CombinateStrings("COM_SID_POPUP_WIDGET_SHOW_GUIDE", "3"));
    Console.WriteLine("two tuners: " + Number(Tessarin.FlagVisibleSatCRTwoTuner()));
    FindSlot();
    DriveDish();
    FineTune();
    LockRating();
    Tessarin.InitiateExportToTemp(arguments[0]);
    Console.WriteLine("list: " + Tessarin.LoadCopiedChannelList(arguments[0]));
    Console.WriteLine("reset: " + Tessarin.ResetSatelliteSettings());
    return 0;
  }
}
