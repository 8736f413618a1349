#include "session/data/Connection.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

#include "session/data/Background.h"
#include "session/data/ConnectionAccess.h"
#include "session/data/MessageLoop.h"
#include "session/data/OutOfMemory.h"
#include "session/data/ThreadWork.h"

namespace pstolvane1 {
namespace {

struct Opened {
  std::shared_ptr<Provider> provider;
  std::exception_ptr failure;
};

Opened OpenProvider(const ProviderFactory& factory, const std::string& connection_string,
                    std::chrono::milliseconds time_limit) noexcept {
  try {
    Opened opened{factory(connection_string, time_limit), nullptr};
    if (!opened.provider) throw Error(ErrorNumber::kConnection, "no database was opened");
    return opened;
  } catch (...) {
    return {nullptr, std::current_exception()};
  }
}

// What a thread of its own opens for one that waits.
struct Opening {
  std::mutex mutex;
  std::condition_variable ends;
  std::optional<Opened> opened;
};

// The factory may be inside a call that nothing can end, such as a look-up of a server's name. Once
// this thread's work is abandoned it goes on alone, and what it opens is let go.
std::shared_ptr<Provider> OpenWhileNotAbandoned(const ProviderFactory& factory,
                                                const std::string& connection_string,
                                                std::chrono::milliseconds time_limit) {
  constexpr std::chrono::milliseconds kLook{10};
  const WorkInHand work;
  const auto opening = std::make_shared<Opening>();
  RunBeside([opening, factory, connection_string, time_limit] {
    Opened opened = OpenProvider(factory, connection_string, time_limit);
    const std::lock_guard lock(opening->mutex);
    opening->opened = std::move(opened);
    opening->ends.notify_one();
  });
  std::unique_lock lock(opening->mutex);
  while (!opening->ends.wait_for(lock, kLook, [&] { return opening->opened.has_value(); })) {
    if (work.Abandoned()) {
      throw Error(ErrorNumber::kConnection, "the attempt to connect was abandoned");
    }
  }
  // Nothing of it stays with the other thread, which ends later.
  const Opened opened = std::move(*opening->opened);
  if (opened.failure) std::rethrow_exception(opened.failure);
  return opened.provider;
}

std::optional<Error> ErrorOf(const Opened& opened) {
  try {
    if (opened.failure) std::rethrow_exception(opened.failure);
    return std::nullopt;
  } catch (const Error& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return OutOfMemory("opening the books");
  } catch (const std::exception& error) {
    return Error(ErrorNumber::kConnection, error.what());
  }
}

}  // namespace

struct Connection::Impl {
  ProviderFactory factory;
  std::string connection_string;
  int timeout = 30;

  std::shared_ptr<Provider> provider;  // while open
  std::shared_ptr<const int> attempt;  // while connecting: what is compared is which object it is
  const std::shared_ptr<FetchStops> fetches = std::make_shared<FetchStops>();

  int scopes = 0;                     // OneState objects
  std::shared_ptr<BooksState> state;  // theirs, once a rowset was opened
};

std::shared_ptr<Connection> Connection::New(ProviderFactory factory) {
  if (!factory) throw Error(ErrorNumber::kObjectNotSet, "no factory of databases was given");
  return std::shared_ptr<Connection>(new Connection(std::move(factory)));
}

Connection::Connection(ProviderFactory factory) : impl_(std::make_unique<Impl>()) {
  impl_->factory = std::move(factory);
}

Connection::~Connection() = default;

void Connection::ConnectionString(std::string text) { impl_->connection_string = std::move(text); }
const std::string& Connection::ConnectionString() const { return impl_->connection_string; }

void Connection::CommandTimeout(int seconds) {
  if (seconds < 0) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "CommandTimeout is " + std::to_string(seconds) + " seconds; 0 is no limit");
  }
  impl_->timeout = seconds;
}
int Connection::CommandTimeout() const { return impl_->timeout; }

void Connection::Open(std::string_view connection_string, std::string_view user,
                      std::string_view password, int options) {
  if (State() != adStateClosed) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                State() == adStateOpen ? "the connection is open already: close it first"
                                       : "the connection is being opened already");
  }
  if (!user.empty() || !password.empty()) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "a user and a password belong into the connection string");
  }
  if (options != adOptionUnspecified && options != adAsyncConnect) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "options of a connection are -1 or 16, not " + std::to_string(options));
  }
  if (!connection_string.empty()) impl_->connection_string = connection_string;
  const std::chrono::milliseconds time_limit = ConnectionAccess::TimeLimit(*this);

  if (options == adAsyncConnect) {
    const auto attempt = std::make_shared<const int>();
    impl_->attempt = attempt;
    try {
      auto opened = std::make_shared<Opened>();  // written before the message is posted
      MessageQueue::Message told = [attempt, weak = weak_from_this(), opened] {
        const std::shared_ptr<Connection> self = weak.lock();
        if (!self || self->impl_->attempt != attempt) return;  // cancelled
        self->impl_->attempt.reset();
        self->impl_->provider = opened->provider;
        const std::optional<Error> error = ErrorOf(*opened);
        self->RaiseConnectComplete(error ? &*error : nullptr);
      };
      RunBeside([opened = std::move(opened), told = std::move(told), factory = impl_->factory,
                 time_limit, text = impl_->connection_string,
                 queue = MessageQueue::OfThisThread()]() mutable {
        *opened = OpenProvider(factory, text, time_limit);
        opened.reset();
        PostOnceThereIsRoom(*queue, told);
      });
    } catch (...) {
      impl_->attempt.reset();
      throw;
    }
    return;
  }

  const std::shared_ptr<Connection> self = shared_from_this();  // a handler may drop the last other
  const Opened opened = OpenProvider(
      [&](const std::string& text, std::chrono::milliseconds limit) {
        return OpenWhileNotAbandoned(impl_->factory, text, limit);
      },
      impl_->connection_string, time_limit);
  impl_->provider = opened.provider;
  const std::optional<Error> error = ErrorOf(opened);
  RaiseConnectComplete(error ? &*error : nullptr);
  if (error) throw *error;
}

void Connection::RaiseConnectComplete(const Error* error) {
  // The handler may be replaced by itself while it runs.
  if (const auto handler = ConnectComplete) {
    handler(error, error == nullptr ? adStatusOK : adStatusErrorsOccurred, *this);
  }
}

int Connection::State() const {
  if (impl_->attempt) return adStateConnecting;
  return impl_->provider ? adStateOpen : adStateClosed;
}

void Connection::Cancel() {
  if (impl_->attempt) {
    // The factory goes on to its end in the background, and what it opens is let go.
    impl_->attempt.reset();
    MessageQueue::OfThisThread()->Post([weak = weak_from_this()] {
      const Error error(ErrorNumber::kConnection, "the attempt to connect was cancelled");
      if (const auto self = weak.lock()) self->RaiseConnectComplete(&error);
    });
  }
  if (!impl_->provider) return;
  impl_->fetches->StopAll();
  impl_->provider->Cancel();
}

void Connection::StopReading() noexcept { impl_->fetches->StopAll(); }

void Connection::Close() {
  if (!impl_->provider) throw Error(ErrorNumber::kNotOpen, "the connection is not open");
  Cancel();
  impl_->provider.reset();
  impl_->state.reset();
}

std::string Connection::Translate(std::string_view select) const {
  return ConnectionAccess::ProviderOf(*this)->Translate(select);
}

Connection::OneState::OneState(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)) {
  if (!connection_) throw Error(ErrorNumber::kNoConnection, "there is no connection");
  (void)ConnectionAccess::ProviderOf(*connection_);
  ++connection_->impl_->scopes;
}

Connection::OneState::~OneState() {
  Impl& impl = *connection_->impl_;
  if (--impl.scopes == 0) impl.state.reset();
}

const std::shared_ptr<Provider>& ConnectionAccess::ProviderOf(const Connection& connection) {
  if (!connection.impl_->provider) {
    throw Error(ErrorNumber::kNoConnection, connection.State() == adStateConnecting
                                                ? "the connection is still being opened"
                                                : "the connection is not open");
  }
  return connection.impl_->provider;
}

std::shared_ptr<BooksState> ConnectionAccess::StateToRead(Connection& connection) {
  Connection::Impl& impl = *connection.impl_;
  if (impl.scopes > 0 && impl.state && !impl.state->Failed()) return impl.state;
  auto state = std::make_shared<BooksState>(ProviderOf(connection), TimeLimit(connection));
  if (impl.scopes > 0) impl.state = state;
  return state;
}

std::chrono::milliseconds ConnectionAccess::TimeLimit(const Connection& connection) {
  return std::chrono::seconds(connection.impl_->timeout);
}

const std::shared_ptr<FetchStops>& ConnectionAccess::FetchesOf(const Connection& connection) {
  return connection.impl_->fetches;
}

}  // namespace pstolvane1
