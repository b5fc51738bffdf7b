// The functions of libquirelle for managed code.
using System;
using System.Runtime.InteropServices;
using System.Text;

static class Tessarin {
  const string Library = "libquirelle.so";

  public enum SatCRCommand { Detect = 0, Verify = 1, Stop = 2 }

  // --- texts: what comes back is ours to free, so it is taken as an address -------------------------

  public static string CombinateStrings(string id, string a1 = null, string a2 = null, string a3 = null,
                                        string a4 = null) {
    return Take(Tessarin_CombinateStrings(Utf8(id), Utf8(a1), Utf8(a2), Utf8(a3), Utf8(a4)));
  }
  public static string GetCurrentCountryCode() { return Take(Tessarin_GetCurrentCountryCode()); }
  public static string GetCurrentDateString() { return Take(Tessarin_GetCurrentDateString()); }
  /// Null without a rating system.
  public static string GetRatingInfo() { return Take(Tessarin_GetRatingInfo()); }
  public static string GetSatCRProgress(int tuner) { return Take(Tessarin_GetSatCRProgress(tuner)); }
  public static void InitiateExportToTemp(string path) { Tessarin_InitiateExportToTemp(Utf8(path)); }
  public static int LoadCopiedChannelList(string path) { return Tessarin_LoadCopiedChannelList(Utf8(path)); }

  // --- plain values: a bool has one byte at the border, where the runtime would take four -----------

  [DllImport(Library, EntryPoint = "Tessarin_FlagVisibleSatCRTwoTuner", CallingConvention = CallingConvention.Cdecl)]
  [return: MarshalAs(UnmanagedType.I1)]
  public static extern bool FlagVisibleSatCRTwoTuner();
  [DllImport(Library, EntryPoint = "Tessarin_SendSatCRCommand", CallingConvention = CallingConvention.Cdecl)]
  [return: MarshalAs(UnmanagedType.I1)]
  public static extern bool SendSatCRCommand(int tuner, SatCRCommand command);
  [DllImport(Library, EntryPoint = "Tessarin_IsSatCRCommandSuccess", CallingConvention = CallingConvention.Cdecl)]
  [return: MarshalAs(UnmanagedType.I1)]
  public static extern bool IsSatCRCommandSuccess(int tuner, int slotFrequency, int processType);
  [DllImport(Library, EntryPoint = "Tessarin_GetSlotFrequency", CallingConvention = CallingConvention.Cdecl)]
  public static extern int GetSlotFrequency(int tuner);
  [DllImport(Library, EntryPoint = "Tessarin_SetSatCRSlotFrequency", CallingConvention = CallingConvention.Cdecl)]
  public static extern int SetSatCRSlotFrequency(int tuner, int slotFrequency);
  [DllImport(Library, EntryPoint = "Tessarin_UserStorePosition", CallingConvention = CallingConvention.Cdecl)]
  public static extern void UserStorePosition();
  [DllImport(Library, EntryPoint = "Tessarin_InstallerStorePosition", CallingConvention = CallingConvention.Cdecl)]
  public static extern void InstallerStorePosition();
  [DllImport(Library, EntryPoint = "Tessarin_InstallerGoToZero", CallingConvention = CallingConvention.Cdecl)]
  public static extern void InstallerGoToZero();
  [DllImport(Library, EntryPoint = "Tessarin_InstallerResetLimit", CallingConvention = CallingConvention.Cdecl)]
  public static extern void InstallerResetLimit();
  [DllImport(Library, EntryPoint = "Tessarin_TuneAloneSelectedTransponder",
             CallingConvention = CallingConvention.Cdecl)]
  public static extern int TuneAloneSelectedTransponder([MarshalAs(UnmanagedType.I1)] bool enablePositioner);
  [DllImport(Library, EntryPoint = "Tessarin_ResetSatelliteSettings", CallingConvention = CallingConvention.Cdecl)]
  public static extern int ResetSatelliteSettings();
  [DllImport(Library, EntryPoint = "Tessarin_GetTunerMft", CallingConvention = CallingConvention.Cdecl)]
  public static extern int GetTunerMft();
  [DllImport(Library, EntryPoint = "Tessarin_PresetTunerMft", CallingConvention = CallingConvention.Cdecl)]
  public static extern void PresetTunerMft(int value);
  [DllImport(Library, EntryPoint = "Tessarin_SetTunerMft", CallingConvention = CallingConvention.Cdecl)]
  public static extern void SetTunerMft();
  [DllImport(Library, EntryPoint = "Tessarin_ResetTurnerMft", CallingConvention = CallingConvention.Cdecl)]
  public static extern void ResetTurnerMft();
  [DllImport(Library, EntryPoint = "Tessarin_SetFineTuneType", CallingConvention = CallingConvention.Cdecl)]
  public static extern void SetFineTuneType();
  [DllImport(Library, EntryPoint = "Tessarin_ResetFinetuneType", CallingConvention = CallingConvention.Cdecl)]
  public static extern void ResetFinetuneType();
  [DllImport(Library, EntryPoint = "Tessarin_SetFinetuneFreq", CallingConvention = CallingConvention.Cdecl)]
  public static extern void SetFinetuneFreq(int offset);
  [DllImport(Library, EntryPoint = "Tessarin_GetRRSLock", CallingConvention = CallingConvention.Cdecl)]
  [return: MarshalAs(UnmanagedType.I1)]
  public static extern bool GetRRSLock(int dimension, int rating);
  [DllImport(Library, EntryPoint = "Tessarin_SetRRSLock", CallingConvention = CallingConvention.Cdecl)]
  public static extern int SetRRSLock(int dimension, int rating, [MarshalAs(UnmanagedType.I1)] bool locked);

  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr Tessarin_CombinateStrings(byte[] id, byte[] a1, byte[] a2, byte[] a3, byte[] a4);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr Tessarin_GetCurrentCountryCode();
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr Tessarin_GetCurrentDateString();
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr Tessarin_GetRatingInfo();
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern IntPtr Tessarin_GetSatCRProgress(int tuner);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern void Tessarin_InitiateExportToTemp(byte[] path);
  [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
  static extern int Tessarin_LoadCopiedChannelList(byte[] path);
  [DllImport("libc.so.6", CallingConvention = CallingConvention.Cdecl)]
  static extern void free(IntPtr block);

  /// Zero-terminated; null stays null.
  static byte[] Utf8(string text) { return text == null ? null : Encoding.UTF8.GetBytes(text + "\0"); }

  /// The text of a block, which is freed.
  static string Take(IntPtr block) {
    if (block == IntPtr.Zero) return null;
    try {
      int length = 0;
      while (Marshal.ReadByte(block, length) != 0) ++length;
      var bytes = new byte[length];
      Marshal.Copy(block, bytes, 0, length);
      return Encoding.UTF8.GetString(bytes);
    } finally {
      free(block);
    }
  }
}
