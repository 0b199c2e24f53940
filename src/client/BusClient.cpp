// SPDX-License-Identifier: MIT
#include "client/BusClient.h"

#include <dbus/dbus.h>
#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <memory>

namespace tarnwick::client {
namespace {

constexpr const char* kName = "app.tarnwick.Tarnwick";
constexpr const char* kPath = "/app/tarnwick/Tarnwick";
constexpr const char* kInterface = "app.tarnwick.Tarnwick1";
constexpr int kReachTimeout = 2000;  // milliseconds until a silent program counts as none

struct MessageDeleter {
  void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, MessageDeleter>;

Message call(const char* interface, const char* method) {
  Message message(dbus_message_new_method_call(kName, kPath, interface, method));
  if (message) dbus_message_set_auto_start(message.get(), FALSE);
  return message;
}

Message send(DBusConnection* connection, const Message& message, int timeout) {
  if (!connection || !message) return nullptr;
  DBusError error;
  dbus_error_init(&error);
  Message reply(dbus_connection_send_with_reply_and_block(connection, message.get(), timeout, &error));
  dbus_error_free(&error);
  return reply;
}

// Without an address or the user's own bus, libdbus would start a bus of its own.
bool hasSessionBus() {
  const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address && *address) return true;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  struct stat info = {};
  return runtime && stat((std::string(runtime) + "/bus").c_str(), &info) == 0;
}

}  // namespace

BusClient::BusClient() {
  if (!hasSessionBus()) return;
  DBusError error;
  dbus_error_init(&error);
  m_connection = dbus_bus_get_private(DBUS_BUS_SESSION, &error);
  dbus_error_free(&error);
  if (m_connection) dbus_connection_set_exit_on_disconnect(m_connection, FALSE);
}

BusClient::~BusClient() {
  if (!m_connection) return;
  dbus_connection_close(m_connection);
  dbus_connection_unref(m_connection);
}

std::optional<std::string> BusClient::runningStorePath() {
  const auto message = call("org.freedesktop.DBus.Properties", "Get");
  const char* interface = kInterface;
  const char* property = "StorePath";
  if (!message || !dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &interface, DBUS_TYPE_STRING, &property,
                                            DBUS_TYPE_INVALID)) {
    return std::nullopt;
  }
  const auto reply = send(m_connection, message, kReachTimeout);
  if (!reply) return std::nullopt;
  DBusMessageIter outer;
  if (!dbus_message_iter_init(reply.get(), &outer) || dbus_message_iter_get_arg_type(&outer) != DBUS_TYPE_VARIANT) {
    return std::nullopt;
  }
  DBusMessageIter inner;
  dbus_message_iter_recurse(&outer, &inner);
  if (dbus_message_iter_get_arg_type(&inner) != DBUS_TYPE_STRING) return std::nullopt;
  const char* path = nullptr;
  dbus_message_iter_get_basic(&inner, &path);
  return std::string(path);
}

bool BusClient::activate() {
  const auto message = call("org.freedesktop.Application", "Activate");
  if (!message) return false;
  DBusMessageIter arguments;
  DBusMessageIter dictionary;
  dbus_message_iter_init_append(message.get(), &arguments);
  dbus_message_iter_open_container(&arguments, DBUS_TYPE_ARRAY, "{sv}", &dictionary);
  dbus_message_iter_close_container(&arguments, &dictionary);
  return send(m_connection, message, kReachTimeout) != nullptr;
}

std::optional<Reply> BusClient::command(const std::vector<std::string>& arguments, const std::string& standardInput,
                                        const std::string& workingDirectory) {
  const auto message = call(kInterface, "Command");
  if (!message) return std::nullopt;
  DBusMessageIter outer;
  DBusMessageIter list;
  dbus_message_iter_init_append(message.get(), &outer);
  dbus_message_iter_open_container(&outer, DBUS_TYPE_ARRAY, "s", &list);
  for (const auto& argument : arguments) {
    const char* text = argument.c_str();
    dbus_message_iter_append_basic(&list, DBUS_TYPE_STRING, &text);
  }
  dbus_message_iter_close_container(&outer, &list);
  const char* input = standardInput.c_str();
  const char* folder = workingDirectory.c_str();
  dbus_message_iter_append_basic(&outer, DBUS_TYPE_STRING, &input);
  dbus_message_iter_append_basic(&outer, DBUS_TYPE_STRING, &folder);

  const auto reply = send(m_connection, message, INT_MAX);
  if (!reply) return std::nullopt;
  dbus_int32_t status = 1;
  const char* output = nullptr;
  const char* error = nullptr;
  DBusError failure;
  dbus_error_init(&failure);
  if (!dbus_message_get_args(reply.get(), &failure, DBUS_TYPE_INT32, &status, DBUS_TYPE_STRING, &output,
                             DBUS_TYPE_STRING, &error, DBUS_TYPE_INVALID)) {
    dbus_error_free(&failure);
    return std::nullopt;
  }
  return Reply{status, output, error};
}

bool isText(const std::string& bytes) {
  return bytes.find('\0') == std::string::npos && dbus_validate_utf8(bytes.c_str(), nullptr);
}

}  // namespace tarnwick::client
