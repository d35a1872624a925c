// Work in parts that hang on nothing but where they begin: dealt in their order, done on all cores at once, handed out
// in their order.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace zonterbrook::control {

/// A `Part` is where a part of the work begins, an `Outcome` what comes of it. Both are moved about.
template <typename Part, typename Outcome>
class Crew {
public:
    /// Deals the part of that number: called for each in order, by one worker at a time.
    using Dealer = std::function<Part(int)>;
    using Worker = std::function<Outcome(Part)>;

    /// Begins at once, with so many workers, or 0: one for each core. Each worker is what `Hire()`, called by its own
    /// thread, says. `GoOn` is asked every so often by the thread that waits for an outcome: it may let a window work,
    /// and stops all by answering no. `Stopping` is raised then, so that workers may look at it; it must outlive the
    /// crew.
    Crew(int InParts, int Workers, Dealer InDeal, const std::function<Worker()>& Hire, std::function<bool()> InGoOn,
         std::atomic<bool>& InStopping)
        : Parts(InParts), Count(CountFor(Workers, InParts)), Deal(std::move(InDeal)), GoOn(std::move(InGoOn)),
          Stopping(InStopping), Places(static_cast<std::size_t>(InParts)) {
        for (int I = 0; I < Count; ++I) {
            Threads.emplace_back([this, Hire] { WorkOn(Hire()); });
        }
    }
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;
    ~Crew() { Stop(); }

    /// Waits for the outcome of one more part; nothing if there is none left or the work was stopped. Throws what its
    /// dealer or worker threw.
    std::optional<Outcome> Next() {
        if (Handed == Parts) {
            return std::nullopt;
        }
        Place& Mine = Places[static_cast<std::size_t>(Handed)];
        std::unique_lock Held(Lock);
        do {
            Held.unlock();
            if (Stopping || !GoOn()) {
                Stop();
                return std::nullopt;
            }
            Held.lock();
        } while (!Changed.wait_for(Held, LongestWait, [&] { return Mine.Known; }));
        ++Handed;
        Changed.notify_all();
        if (Mine.Failure != nullptr) {
            std::rethrow_exception(Mine.Failure);
        }
        return std::exchange(Mine.Found, std::nullopt);
    }

private:
    /// How long the thread that waits leaves its window alone.
    static constexpr std::chrono::milliseconds LongestWait{5};
    /// Outcomes that wait to be handed out, by worker: enough that a long part holds nobody up.
    static constexpr int MostWaiting = 8;

    struct Place {
        bool Known = false;
        std::optional<Outcome> Found;
        std::exception_ptr Failure;
    };

    static int CountFor(int Workers, int Parts) {
        const int Cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
        return std::min(Workers > 0 ? Workers : Cores, Parts);
    }

    void Stop() {
        const std::lock_guard Held(Lock);
        Stopping = true;
        Changed.notify_all();
    }

    void WorkOn(const Worker& Work) {
        for (std::unique_lock Held(Lock);;) {
            Changed.wait(Held, [this] { return Stopping || Dealt == Parts || Dealt < Handed + MostWaiting * Count; });
            if (Stopping || Dealt == Parts) {
                return;
            }
            const int Number = Dealt++;
            Place& Mine = Places[static_cast<std::size_t>(Number)];
            try {
                Part Begun = Deal(Number);
                Held.unlock();
                Mine.Found = Work(std::move(Begun));
            } catch (...) {
                Mine.Failure = std::current_exception();
            }
            if (!Held.owns_lock()) {
                Held.lock();
            }
            Mine.Known = !Stopping;
            Changed.notify_all();
        }
    }

    const int Parts;
    const int Count;
    const Dealer Deal;
    const std::function<bool()> GoOn;

    // Shared by all threads, under the lock but for the flag.
    std::atomic<bool>& Stopping;
    std::mutex Lock;
    std::condition_variable Changed;
    int Dealt = 0;
    int Handed = 0;
    std::vector<Place> Places;

    std::vector<std::jthread> Threads; ///< last, so that they have ended before anything else goes
};

} // namespace zonterbrook::control
