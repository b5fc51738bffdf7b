// What travels on the event channel.
#pragma once

#include <string>

/// The numbers travel; no other types exist.
enum EVENT_TYPE {
  EVENT_EXIT_APP = 1,
  /// nParam1: the window ID, or 0 with a CEventPositionData; nParam2: the case number of the new view.
  EVENT_PUSH_VIEW = 2,
  /// nParam1: 0 ends the program with its last view, 1 only pops.
  EVENT_POP_VIEW = 3,
  EVENT_PAUSE_APP = 8,
  EVENT_REFRESH_VIEW = 10,
  EVENT_START_APP = 13,
};

class IEventData {
 public:
  virtual ~IEventData() = default;
  virtual std::string GetMenuID() = 0;
};

/// An in-place control and the list row beside which it opens (screen pixels).
class CEventPositionData : public IEventData {
 public:
  explicit CEventPositionData(const char* menuID) : m_menuID(menuID ? menuID : "") {}
  std::string GetMenuID() override { return m_menuID; }
  void SetPositionData(int x, int y, int w) { m_x = x, m_y = y, m_w = w; }
  void GetPositionData(int* x, int* y, int* w) const { *x = m_x, *y = m_y, *w = m_w; }

 private:
  std::string m_menuID;
  int m_x = 0, m_y = 0, m_w = 0;
};

class CEventStringData : public IEventData {
 public:
  explicit CEventStringData(const char* menuID) : m_menuID(menuID ? menuID : "") {}
  std::string GetMenuID() override { return m_menuID; }
  void SetExtraData(std::string extraData) { m_extraData = std::move(extraData); }

 private:
  std::string m_menuID, m_extraData;
};

class CEventParentsIDData : public CEventStringData {
 public:
  using CEventStringData::CEventStringData;
  void SetParentsMenuID(const char* menuID) { m_parentsMenuID = menuID ? menuID : ""; }
  void SetParam(std::string param) { m_param = std::move(param); }

 private:
  std::string m_parentsMenuID, m_param;
};

class CEventSwitchData : public IEventData {
 public:
  CEventSwitchData(const char* menuID, const char* second, const char* third)
      : m_menuID(menuID ? menuID : ""), m_second(second ? second : ""), m_third(third ? third : "") {}
  std::string GetMenuID() override { return m_menuID; }

 private:
  std::string m_menuID, m_second, m_third;
};

class CEventLaunchData : public IEventData {
 public:
  CEventLaunchData(bool flag, const char* first, const char* second)
      : m_flag(flag), m_first(first ? first : ""), m_second(second ? second : "") {}
  std::string GetMenuID() override { return {}; }

 private:
  [[maybe_unused]] bool m_flag;
  std::string m_first, m_second;
};

struct CEvent {
  int nEventType = 0;
  int nParam1 = 0;
  int nParam2 = 0;
  void* pData = nullptr;
  /// Belongs to the channel once the record is posted; deleted after delivery.
  IEventData* pEventData = nullptr;
};
