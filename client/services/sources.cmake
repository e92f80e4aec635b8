target_sources(plandesk_platform PRIVATE
)
